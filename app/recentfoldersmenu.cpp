#include "app/recentfoldersmenu.h"

#include "base/fileidentity.h"
#include "base/lastfolder.h"

#include <QDir>
#include <QFontMetrics>

namespace brisel
{

RecentFoldersMenu::RecentFoldersMenu(QMenu &menu) : QObject(&menu), m_menu(menu)
{
    connect(&menu, &QMenu::aboutToShow, this, &RecentFoldersMenu::fill);
}

void RecentFoldersMenu::fill()
{
    constexpr int widestName = 480; // pixels
    m_menu.clear();
    int number = 0;
    for (const QString &folder : Settings::recentFolders.in(openSettings()).mid(0, mostRecent)) {
        if (fileKind(folder) != FileKind::Folder)
            continue;
        const QString path = QDir::toNativeSeparators(folder);
        QString name = m_menu.fontMetrics().elidedText(path, Qt::ElideMiddle, widestName);
        name.replace(u'&', QLatin1StringView("&&"));
        QAction *action = m_menu.addAction(QStringLiteral("&%1  %2").arg(++number).arg(name));
        action->setToolTip(path.toHtmlEscaped());
        connect(action, &QAction::triggered, this, [this, folder] { emit chosen(folder); });
    }
    if (number == 0)
        m_menu.addAction(tr("Nessuna cartella"))->setEnabled(false);
}

} // namespace brisel
