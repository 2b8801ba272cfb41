#include "app/startup.h"
#include "app/style.h"
#include "tests/app/contrast.h"
#include "tests/app/everywindow.h"
#include "tests/testprogram.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSettings>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QTextBrowser>
#include <QTreeView>

#include <algorithm>

using namespace brisel;

/// Every window as it is painted: each text has enough contrast, and the focus is visible.
class TestReadability : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { applyDarkStyle(*qApp); }
    void init();
    void textsStandOut_data();
    void textsStandOut();
    void tableRowsStandOut();
    void refusedCopiesStandOut();
    void arrowsStandOutOnTheSelection();
    void focusIsSeen_data() { textsStandOut_data(); }
    void focusIsSeen();
};

namespace
{

/// The most frequent colour of a picture.
QColor groundOf(const QImage &image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    }
    QRgb most = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        most = it.value() > counts.value(most) ? it.key() : most;
    return QColor(most);
}

/// The colour role of a widget's text; NoRole without text.
QPalette::ColorRole textRole(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->text().isEmpty() ? QPalette::NoRole : QPalette::WindowText;
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
        if (button->text().isEmpty())
            return QPalette::NoRole;
        return button->isCheckable() ? QPalette::WindowText : QPalette::ButtonText;
    }
    if (qobject_cast<const QLineEdit *>(widget) != nullptr ||
        qobject_cast<const QPlainTextEdit *>(widget) != nullptr ||
        qobject_cast<const QTextBrowser *>(widget) != nullptr)
        return QPalette::Text;
    if (qobject_cast<const QComboBox *>(widget) != nullptr)
        return QPalette::Text;
    if (qobject_cast<const QMenuBar *>(widget) != nullptr)
        return QPalette::ButtonText;
    if (qobject_cast<const QHeaderView *>(widget) != nullptr)
        return QPalette::ButtonText;
    return QPalette::NoRole;
}

/// The part of \a window with \a widget, drawn with its background.
QImage drawn(QWidget *window, const QWidget *widget)
{
    return window->grab(QRect(widget->mapTo(window, QPoint(0, 0)), widget->size())).toImage();
}

/// The contrast of the most different pixel with the ground of a part of \a widget.
double strongestContrast(QWidget *widget, const QRect &part)
{
    const QImage image = widget->grab(part).toImage();
    const QColor ground = groundOf(image);
    double strongest = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            strongest = std::max<double>(strongest, contrast(image.pixelColor(x, y), ground));
    }
    return strongest;
}

} // namespace

void TestReadability::init()
{
    QSettings(settingsOrganisation, settingsApplication).setValue(u"language"_qs, u"it"_qs);
}

void TestReadability::textsStandOut_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : windowNames)
        QTest::newRow(qPrintable(name)) << name;
}

void TestReadability::textsStandOut()
{
    QFETCH(QString, name);
    const std::unique_ptr<QWidget> window = makeWindow(name);
    QWidget *top = shown(*window);
    QTest::qWait(20);
    int texts = 0;
    for (const auto *widget : top->findChildren<QWidget *>()) {
        const QPalette::ColorRole role = textRole(widget);
        if (role == QPalette::NoRole || !widget->isVisible() || !widget->isEnabled())
            continue;
        ++texts;
        const QColor ground = groundOf(drawn(top, widget));
        const QColor text = widget->palette().color(QPalette::Active, role);
        QVERIFY2(text.alpha() == 255 && contrast(text, ground) >= 4.5,
                 qPrintable(u"%1 %2: %3 on %4"_qs.arg(
                     QString::fromLatin1(widget->metaObject()->className()), widget->objectName(),
                     text.name(QColor::HexArgb), ground.name())));
        const auto *field = qobject_cast<const QLineEdit *>(widget);
        if (field != nullptr && !field->placeholderText().isEmpty()) {
            // The style sheet makes the colour of a placeholder half transparent.
            const QColor placeholder =
                widget->palette().color(QPalette::Active, QPalette::PlaceholderText);
            QVERIFY2(placeholder.alpha() == 255 && contrast(placeholder, ground) >= 4.5,
                     qPrintable(widget->objectName()));
            QVERIFY(placeholder != text && field->font().italic());
        }
    }
    QVERIFY(texts > 0);
}

void TestReadability::tableRowsStandOut()
{
    const std::unique_ptr<QWidget> window = makeWindow(u"main"_qs);
    shown(*window);
    const auto *table = window->findChild<QTableView *>();
    const QColor text = table->palette().color(QPalette::Active, QPalette::Text);
    for (int row = 0; row < 4; ++row) {
        const auto ground = table->model()->index(row, 2).data(Qt::BackgroundRole).value<QColor>();
        QVERIFY(ground.isValid());
        QVERIFY(contrast(text, ground) >= 4.5);
    }
    QVERIFY(contrast(table->palette().color(QPalette::Active, QPalette::HighlightedText),
                     table->palette().color(QPalette::Active, QPalette::Highlight)) >= 4.5);
}

void TestReadability::refusedCopiesStandOut()
{
    const std::unique_ptr<QWidget> window = makeWindow(u"restore-backup"_qs);
    shown(*window);
    const auto *tree = window->findChild<QTreeView *>();
    const QModelIndex refused = tree->model()->index(2, 2);
    QVERIFY(!refused.flags().testFlag(Qt::ItemIsEnabled));
    QVERIFY(strongestContrast(tree->viewport(), tree->visualRect(refused)) >= 4.5);
}

/// The arrow that closes the selected operation.
void TestReadability::arrowsStandOutOnTheSelection()
{
    const std::unique_ptr<QWidget> window = makeWindow(u"history"_qs);
    QWidget *top = shown(*window);
    top->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(top));
    const auto *tree = window->findChild<QTreeView *>();
    const QModelIndex run = tree->model()->index(2, 0);
    QVERIFY(tree->isExpanded(run) && tree->selectionModel()->isSelected(run));
    QRect branch = tree->visualRect(run);
    branch.setRight(branch.left() - 1);
    branch.setLeft(0);
    QVERIFY(strongestContrast(tree->viewport(), branch) >= 3);
}

void TestReadability::focusIsSeen()
{
    QFETCH(QString, name);
    const std::unique_ptr<QWidget> window = makeWindow(name);
    QWidget *top = shown(*window);
    top->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(top));
    for (auto *widget : top->findChildren<QWidget *>()) {
        const bool takesTab = (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (!takesTab || !widget->isVisible() || !widget->isEnabled() ||
            widget->focusProxy() != nullptr || widget->parentWidget()->focusProxy() == widget)
            continue;
        if (QWidget *other = QApplication::focusWidget())
            other->clearFocus();
        const QImage without = drawn(top, widget);
        widget->setFocus(Qt::TabFocusReason);
        QVERIFY2(widget->hasFocus(), qPrintable(widget->objectName()));
        const QImage with = drawn(top, widget);
        int changed = 0;
        for (int y = 0; y < with.height(); ++y) {
            for (int x = 0; x < with.width(); ++x)
                changed += contrast(with.pixelColor(x, y), without.pixelColor(x, y)) >= 2 ? 1 : 0;
        }
        // A frame around the widget; a text cursor alone is not enough.
        QVERIFY2(
            changed >= with.width() + with.height(),
            qPrintable(u"%1 %2: %3"_qs.arg(QString::fromLatin1(widget->metaObject()->className()),
                                           widget->objectName(), QString::number(changed))));
    }
}

BRISEL_TEST(QApplication, TestReadability)
#include "tst_readability.moc"
