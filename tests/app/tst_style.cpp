#include "app/style.h"
#include "tests/app/contrast.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>

using namespace brisel;

class TestStyle : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void paintsWindowsDarkGreyWithWhiteText();
    void paintsFieldsAndTablesAsDescribed();
    void keepsEveryTextReadable();
    void leavesTableRowsTheirOwnColours();
};

namespace
{

QColor colourIn(const QString &rule, const QString &property)
{
    const QRegularExpression pattern(
        QStringLiteral("(?:^|[;\\s])%1:\\s*(?:rgb\\((\\d+), (\\d+), (\\d+)\\)|(white))")
            .arg(property));
    const QRegularExpressionMatch match = pattern.match(rule);
    if (!match.hasMatch())
        return {};
    if (!match.captured(4).isEmpty())
        return Qt::white;
    return QColor(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
}

QColor paintedGround(QWidget &widget, const QPoint &point)
{
    widget.show();
    return widget.grab().toImage().pixelColor(point);
}

} // namespace

void TestStyle::initTestCase()
{
    applyDarkStyle(*qApp);
    QVERIFY(!qApp->styleSheet().isEmpty());
}

void TestStyle::paintsWindowsDarkGreyWithWhiteText()
{
    QWidget window;
    window.resize(100, 100);
    QCOMPARE(paintedGround(window, {50, 50}), QColor(66, 66, 66));
    QPushButton button(&window);
    button.ensurePolished();
    QCOMPARE(button.palette().color(QPalette::ButtonText), QColor(Qt::white));
}

void TestStyle::paintsFieldsAndTablesAsDescribed()
{
    QLineEdit field;
    field.resize(200, 30);
    QCOMPARE(paintedGround(field, {150, 15}), QColor(138, 139, 139));
    QTableView table;
    table.resize(200, 200);
    QCOMPARE(paintedGround(table, {100, 150}), QColor(225, 225, 225));
    QCOMPARE(table.palette().color(QPalette::Text), QColor(66, 66, 66));
}

void TestStyle::keepsEveryTextReadable()
{
    const QRegularExpression rules(QStringLiteral("([^{}]+)\\{([^}]*)\\}"));
    int checked = 0;
    for (auto it = rules.globalMatch(qApp->styleSheet()); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        for (const QString &prefix : {QString(), QStringLiteral("selection-")}) {
            const QColor text = colourIn(match.captured(2), prefix + QStringLiteral("color"));
            QColor ground =
                colourIn(match.captured(2), prefix + QStringLiteral("background-color"));
            if (!ground.isValid())
                ground = QColor(66, 66, 66);
            if (!text.isValid())
                continue;
            ++checked;
            QVERIFY2(contrast(text, ground) >= 4.5, qPrintable(match.captured(1)));
        }
        // White text on every background that a rule sets without a text colour.
        const QColor ground = colourIn(match.captured(2), QStringLiteral("background-color"));
        const bool ownText = colourIn(match.captured(2), QStringLiteral("color")).isValid();
        const bool holdsText = !match.captured(1).contains(QStringLiteral("QScrollBar"));
        if (ground.isValid() && !ownText && holdsText)
            QVERIFY2(contrast(Qt::white, ground) >= 4.5, qPrintable(match.captured(1)));
    }
    QVERIFY(checked > 10);
}

void TestStyle::leavesTableRowsTheirOwnColours()
{
    QVERIFY(!qApp->styleSheet().contains(
        QRegularExpression(QStringLiteral("Q(TableView|AbstractItemView)::item"))));
}

BRISEL_TEST(QApplication, TestStyle)
#include "tst_style.moc"
