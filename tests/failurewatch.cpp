#include "tests/failurewatch.h"

#include <QApplication>
#include <QDialog>
#include <QProgressDialog>
#include <QTest>

namespace brisel
{

FailureWatch::FailureWatch(QObject *parent) : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &FailureWatch::look);
    m_timer.start(5);
}

void FailureWatch::look()
{
    if (!QTest::currentTestFailed())
        return;
    if (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    QWidget *window = QApplication::activeModalWidget();
    if (auto *progress = qobject_cast<QProgressDialog *>(window))
        progress->cancel(); // its run must stop, too
    else if (auto *dialog = qobject_cast<QDialog *>(window))
        dialog->reject();
    else if (window != nullptr)
        window->close();
    emit failed();
}

} // namespace brisel
