#include "app/soundfontaction.h"

#include "base/runguard.h"
#include "base/settings.h"
#include "library/dialogs/plainmessage.h"
#include "player/soundfont.h"

#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace brisel
{

SoundFontAction::SoundFontAction(QWidget &window, QSettings &settings)
    : QAction(&window), m_window(window), m_settings(settings)
{
    setObjectName(QStringLiteral("actionSoundFont"));
    window.installEventFilter(this);
    connect(this, &QAction::triggered, this, &SoundFontAction::ask);
    retranslate();
}

bool SoundFontAction::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_window && event->type() == QEvent::LanguageChange)
        retranslate();
    return QAction::eventFilter(watched, event);
}

void SoundFontAction::retranslate()
{
    setText(tr("&SoundFont per i MIDI..."));
    setToolTip(tr("Sceglie i suoni con cui si ascoltano i brani MIDI"));
}

void SoundFontAction::ask()
{
    if (RunGuard::isActive())
        return;
    const QString present = soundFontFor(Settings::soundFont.in(m_settings));
    QMessageBox box(QMessageBox::Information, tr("SoundFont"),
                    tr("I brani MIDI si ascoltano con i suoni di un SoundFont General MIDI."),
                    QMessageBox::Close, &m_window);
    setPlainTexts(box, present.isEmpty() ? tr("Il sistema non ne ha nessuno.") : present);
    const QPushButton *other = box.addButton(tr("Sc&egli un file..."), QMessageBox::ActionRole);
    const QPushButton *usual =
        box.addButton(tr("&Usa quello del sistema"), QMessageBox::ActionRole);
    box.setDefaultButton(QMessageBox::Close);
    box.exec();
    if (box.clickedButton() == other)
        pick(present);
    else if (box.clickedButton() == usual)
        Settings::soundFont.store(m_settings, QString());
}

void SoundFontAction::pick(const QString &present)
{
    const QString chosen =
        QFileDialog::getOpenFileName(&m_window, tr("Scegli un SoundFont"),
                                     QFileInfo(present).path(), tr("SoundFont (*.sf2 *.sf3)"));
    if (!chosen.isEmpty())
        Settings::soundFont.store(m_settings, chosen);
}

} // namespace brisel
