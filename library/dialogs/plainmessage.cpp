#include "library/dialogs/plainmessage.h"

#include <QLabel>
#include <QMessageBox>

namespace brisel
{

void setPlainTexts(QMessageBox &box, const QString &details)
{
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(details);
    // QMessageBox::setTextFormat() is for the first text only.
    const auto labels = box.findChildren<QLabel *>();
    for (QLabel *label : labels)
        label->setTextFormat(Qt::PlainText);
}

} // namespace brisel
