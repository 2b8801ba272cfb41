#include "tools/demo/pagestour.h"

#include "app/startup.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QLabel>
#include <QTest>
#include <QTextEdit>

namespace brisel
{

namespace
{

void closeByButton(QWidget *dialog)
{
    const auto *box = dialog->findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
    if (box != nullptr && !box->buttons().isEmpty())
        QTest::mouseClick(box->buttons().first(), Qt::LeftButton);
}

} // namespace

void readHelp(Stage &stage)
{
    Narrator &narrator = stage.narrator;
    narrator.step(QStringLiteral("Read the help"));
    stage.hand.rest();
    stage.hand.expectDialog("HelpDialog", QStringLiteral("help"), [&narrator](QWidget *dialog) {
        const auto *page = dialog->findChild<QTextEdit *>(QStringLiteral("textEdit"));
        const qsizetype length = page != nullptr ? page->toPlainText().size() : 0;
        narrator.check(length > 1000, QStringLiteral("a page of %1 characters").arg(length));
        closeByButton(dialog);
    });
    stage.hand.chooseMenu(QStringLiteral("actionContents"), QStringLiteral("help-menu"));
    stage.hand.checkAnswered();
}

void readAbout(Stage &stage)
{
    Narrator &narrator = stage.narrator;
    narrator.step(QStringLiteral("Read about the program"));
    stage.hand.rest();
    stage.hand.expectDialog("AboutDialog", QStringLiteral("about"), [&narrator](QWidget *dialog) {
        const auto *version = dialog->findChild<QLabel *>(QStringLiteral("versionLabel"));
        narrator.check(version != nullptr && version->text().contains(programVersion()),
                       QStringLiteral("it names the version"));
        closeByButton(dialog);
    });
    stage.hand.chooseMenu(QStringLiteral("actionAbout"), QString());
    stage.hand.checkAnswered();
}

} // namespace brisel
