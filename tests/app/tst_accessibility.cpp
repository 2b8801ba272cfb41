#include "app/startup.h"
#include "tests/app/everywindow.h"
#include "tests/testprogram.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressDialog>
#include <QScrollBar>
#include <QSettings>
#include <QTest>
#include <QTranslator>

#include <functional>

using namespace brisel;

/// The data of every window for screen readers.
class TestAccessibility : public QObject
{
    Q_OBJECT

private slots:
    void controlsHaveNames_data();
    void controlsHaveNames();
    void controlsAreDescribed_data() { controlsHaveNames_data(); }
    void controlsAreDescribed();
    void namesDistinguishControls_data() { controlsHaveNames_data(); }
    void namesDistinguishControls();
    void mnemonicsDiffer_data();
    void mnemonicsDiffer();
    void menusCanBeRead();
    void tableCanBeRead();

private:
    using Look = std::function<void(QAccessibleInterface *control, const QString &what)>;
    /// Calls \a look for every control of a window.
    static void lookAtControls(const QString &window, const Look &look);
};

namespace
{

bool isControl(const QAccessibleInterface *part)
{
    switch (part->role()) {
    case QAccessible::Button:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::EditableText:
    case QAccessible::ComboBox:
    case QAccessible::SpinBox:
    case QAccessible::Table:
    case QAccessible::ProgressBar:
        return true;
    default:
        return false;
    }
}

/// Parts of other controls, which screen readers never show alone.
bool isPart(const QObject *object)
{
    const QObject *parent = object->parent();
    return object->objectName().startsWith(u"qt_"_qs) ||
           qobject_cast<const QAbstractItemView *>(parent) != nullptr ||
           qobject_cast<const QScrollBar *>(object) != nullptr ||
           (parent != nullptr && (parent->inherits("QTabBar") || parent->inherits("QComboBox") ||
                                  parent->inherits("QComboBoxPrivateContainer")));
}

} // namespace

void TestAccessibility::lookAtControls(const QString &name, const Look &look)
{
    const std::unique_ptr<QWidget> window = makeWindow(name);
    const QWidget *top = shown(*window);
    for (auto *widget : top->findChildren<QWidget *>()) {
        QAccessibleInterface *part = QAccessible::queryAccessibleInterface(widget);
        if (part != nullptr && isControl(part) && !isPart(widget))
            look(part, QString::fromLatin1(widget->metaObject()->className()) + u' ' +
                           widget->objectName());
    }
}

void TestAccessibility::controlsHaveNames_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : windowNames)
        QTest::newRow(qPrintable(name)) << name;
}

void TestAccessibility::controlsHaveNames()
{
    QFETCH(QString, name);
    int controls = 0;
    QStringList nameless;
    lookAtControls(name, [&](QAccessibleInterface *control, const QString &what) {
        ++controls;
        if (control->text(QAccessible::Name).isEmpty())
            nameless.append(what);
    });
    QVERIFY(controls > 0);
    QCOMPARE(nameless.join(u", "_qs), QString());
}

void TestAccessibility::controlsAreDescribed()
{
    QFETCH(QString, name);
    QStringList missing;
    lookAtControls(name, [&](QAccessibleInterface *control, const QString &what) {
        const QObject *parent = control->object()->parent();
        // The texts of buttons are enough, and pages show their own texts.
        const bool isPlain = qobject_cast<const QDialogButtonBox *>(parent) != nullptr ||
                             qobject_cast<const QProgressDialog *>(parent) != nullptr ||
                             control->object()->inherits("QTextBrowser");
        if (!isPlain && control->text(QAccessible::Description).isEmpty())
            missing.append(what);
    });
    QCOMPARE(missing.join(u", "_qs), QString());
}

void TestAccessibility::namesDistinguishControls()
{
    QFETCH(QString, name);
    QHash<QString, QString> known;
    QStringList alike;
    lookAtControls(name, [&](QAccessibleInterface *control, const QString &what) {
        const QString key = control->text(QAccessible::Name) + QString::number(control->role());
        if (known.contains(key))
            alike.append(what + u" = "_qs + known.value(key));
        known.insert(key, what);
    });
    QCOMPARE(alike.join(u", "_qs), QString());
}

void TestAccessibility::mnemonicsDiffer_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("language");
    for (const char *language : {"it", "en"}) {
        for (const QString &name : windowNames)
            QTest::addRow("%s-%s", qPrintable(name), language)
                << name << QString::fromLatin1(language);
    }
}

/// Each key with Alt leads to one control, also in the menu bar.
void TestAccessibility::mnemonicsDiffer()
{
    QFETCH(QString, name);
    QFETCH(QString, language);
    QTranslator program;
    QTranslator qt;
    loadTranslations(language, program, qt);
    const std::unique_ptr<QWidget> window = makeWindow(name);
    const QWidget *top = shown(*window);
    QStringList texts;
    for (const auto *label : top->findChildren<QLabel *>()) {
        if (label->isVisible() && label->buddy() != nullptr)
            texts.append(label->text());
    }
    for (const auto *button : top->findChildren<QAbstractButton *>()) {
        if (button->isVisible())
            texts.append(button->text());
    }
    if (const auto *bar = top->findChild<QMenuBar *>()) {
        for (const QAction *action : bar->actions())
            texts.append(action->text());
    }
    QHash<QKeySequence, QString> known;
    for (const QString &text : std::as_const(texts)) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        QVERIFY2(key.isEmpty() || !known.contains(key),
                 qPrintable(text + u" = "_qs + known.value(key)));
        known.insert(key, text);
    }
}

void TestAccessibility::menusCanBeRead()
{
    const std::unique_ptr<QWidget> window = makeWindow(u"main-empty"_qs);
    window->show();
    QAccessibleInterface *bar =
        QAccessible::queryAccessibleInterface(window->findChild<QWidget *>(u"menuBar"_qs));
    QStringList names;
    for (int i = 0; i < bar->childCount(); ++i)
        names.append(bar->child(i)->text(QAccessible::Name));
    QCOMPARE(names.join(u'|'), u"File|Preferenze|Vista|Strumenti|Aiuto"_qs);
}

void TestAccessibility::tableCanBeRead()
{
    const std::unique_ptr<QWidget> window = makeWindow(u"main"_qs);
    window->show();
    QAccessibleInterface *part = QAccessible::queryAccessibleInterface(
        window->findChild<QWidget *>(u"userLibraryTableView"_qs));
    QCOMPARE(part->text(QAccessible::Name), u"Song della libreria"_qs);
    QAccessibleTableInterface *table = part->tableInterface();
    QVERIFY(table != nullptr);
    QVERIFY(table->rowCount() > 4);
    QCOMPARE(table->columnDescription(2), u"Titolo"_qs);
    QVERIFY(!table->cellAt(2, 2)->text(QAccessible::Name).isEmpty());
    QCOMPARE(table->selectedRows(), QList<int>{2});
}

BRISEL_TEST(QApplication, TestAccessibility)
#include "tst_accessibility.moc"
