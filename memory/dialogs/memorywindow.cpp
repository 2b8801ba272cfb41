#include "memory/dialogs/memorywindow.h"

#include "base/settings.h"
#include "library/dialogs/windowplace.h"
#include "ui_memorywindow.h"

#include <QCloseEvent>

namespace brisel
{

MemoryWindow::MemoryWindow(QWidget *parent)
    : QWidget(parent, Qt::Window), m_ui(std::make_unique<Ui::MemoryWindow>())
{
    m_ui->setupUi(this);
    constexpr int lists = 3; // the shares of the window's width
    constexpr int playlists = 2;
    m_ui->splitter->setStretchFactor(0, lists);
    m_ui->splitter->setStretchFactor(1, playlists);
    connect(m_ui->closePushButton, &QPushButton::clicked, this, &QWidget::close);
    restorePlace(*this, openSettings(), Settings::memoryPlace);
}

MemoryWindow::~MemoryWindow() = default;

QBoxLayout &MemoryWindow::playlistsLayout() const
{
    return *m_ui->playlistsLayout;
}

QBoxLayout &MemoryWindow::actionsLayout() const
{
    return *m_ui->actionsLayout;
}

void MemoryWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_ui->retranslateUi(this);
}

void MemoryWindow::closeEvent(QCloseEvent *event)
{
    QSettings settings = openSettings();
    storePlace(*this, settings, Settings::memoryPlace);
    QWidget::closeEvent(event);
}

} // namespace brisel
