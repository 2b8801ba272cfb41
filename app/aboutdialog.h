#pragma once

#include <QDate>
#include <QDialog>

#include <memory>

namespace brisel
{

namespace Ui
{
class AboutDialog;
}

/// Shows the product's name, version, build date and the publisher's contact line.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget *parent = nullptr);
    ~AboutDialog() override;

    /// The date of a compiler's stamp such as "Dec  3 2013"; an invalid date for any other text.
    static QDate dateOfStamp(const QString &stamp);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showTexts();

    std::unique_ptr<Ui::AboutDialog> m_ui;
};

} // namespace brisel
