#pragma once

#include <QDialog>

#include <memory>

namespace brisel
{

namespace Ui
{
class HelpDialog;
}

/// Shows the user guide in the program's language.
class HelpDialog : public QDialog
{
    Q_OBJECT

public:
    explicit HelpDialog(QWidget *parent = nullptr);
    ~HelpDialog() override;

    /// Shows the page of the language in the settings: Italian, German, English for any other.
    /// The view stays as it was when the page can't be opened.
    void loadHelp();

protected:
    void changeEvent(QEvent *event) override;

private:
    std::unique_ptr<Ui::HelpDialog> m_ui;
};

} // namespace brisel
