#include "library/dialogs/previewmodel.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

/// The rows of a preview, without its window.
class TestPreviewModel : public QObject
{
    Q_OBJECT

private slots:
    void showsLongTextsOnOneLine();
    void showsSongsWithoutFieldChanges();
};

/// A tag may hold a million characters.
void TestPreviewModel::showsLongTextsOnOneLine()
{
    PreviewSong song;
    song.foundBy = FoundBy::Title;
    song.changes = {{FieldChange::Field::Title, u"one\ntwo"_s, QString(1000000, u'x')}};
    const PreviewModel model({song}, true);
    const QModelIndex cell = model.index(0, PreviewModel::OldColumn);
    QCOMPARE(cell.data().toString(), u"one two"_s);
    QCOMPARE(cell.siblingAtColumn(PreviewModel::NewColumn).data().toString().size(), 500);
    QVERIFY(cell.siblingAtColumn(PreviewModel::NewColumn).data(Qt::ToolTipRole).toString().size() <
            1000);
}

void TestPreviewModel::showsSongsWithoutFieldChanges()
{
    PreviewSong song;
    song.foundBy = FoundBy::Title;
    const PreviewModel model({song}, true);
    QCOMPARE(model.index(0, PreviewModel::FieldColumn).data().toString(), u"nessun dato cambia"_s);
}

BRISEL_TEST(QCoreApplication, TestPreviewModel)
#include "tst_previewmodel.moc"
