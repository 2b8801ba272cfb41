#include "memory/dialogs/exportlistdialog.h"

#include "library/dialogs/wheelguard.h"
#include "ui_exportlistdialog.h"

#include <QEvent>

namespace brisel
{

ExportListDialog::ExportListDialog(SetFiles::ListIndex list, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ExportListDialog>())
{
    constexpr int orders = 3; // the lists of all songs, and those of the MP3s in the same orders
    m_ui->setupUi(this);
    m_ui->orderComboBox->setCurrentIndex(static_cast<int>(list) % orders);
    m_ui->songsComboBox->setCurrentIndex(SetFiles::isMp3Only(list) ? 1 : 0);
    new WheelGuard(*this);
}

ExportListDialog::~ExportListDialog() = default;

SongsListKind ExportListDialog::kind() const
{
    return {static_cast<SORT_MODE>(m_ui->orderComboBox->currentIndex()),
            m_ui->songsComboBox->currentIndex() == 1,
            m_ui->formatComboBox->currentIndex() == 1 ? SongsListKind::Format::Html
                                                      : SongsListKind::Format::Csv};
}

void ExportListDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_ui->retranslateUi(this);
}

} // namespace brisel
