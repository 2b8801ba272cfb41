#pragma once

#include "base/settingsstore.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

class QDateTime;
class QLocale;
class QMessageLogContext;
class QTranslator;

namespace brisel
{

/// The steps before the window opens, as functions that a test can call.

/// The version that the log banner and the About box show.
QString programVersion();
/// The compiler's date stamp of the build, its day padded with a blank: "Dec  3 2013".
QString buildDate();
/// The compiler's time stamp of the build: "09:52:04".
QString buildTime();

/// Sends all messages from now on to "log.txt" in the working folder if "logenabled" is on (after
/// deleting an old log if "logclear" is on, too). Otherwise drops them: then the program's own
/// messages are not even built.
void startLog(const QSettings &settings);

/// The start of a log line: "[05-03-2024 14:07:09]", each field padded with zeros.
QByteArray logTimeStamp(const QDateTime &time);

/// Appends one line to "log.txt"; a line that can't be written is dropped. See docs/formats/log.md.
void myMessageOutput(QtMsgType type, const QMessageLogContext &context, const QString &message);
/// Writes nothing. Both handlers end the process after a fatal message.
void dummyMessageOutput(QtMsgType type, const QMessageLogContext &context, const QString &message);

/// The language code stored in \a settings. At the first start it is chosen from the language of
/// \a system and stored at once: "it" on an Italian system, "en" on every other.
QString chooseLanguage(QSettings &settings, const QLocale &system);

/// Loads the texts for a language code and installs the translators: "it" has texts for both, every
/// other code has the English texts only for \a program. Texts that can't be loaded stay in the
/// Italian of the sources.
void loadTranslations(const QString &language, QTranslator &program, QTranslator &qt);

/// Removes the translators that the application owns: those of the language of the start.
void removeStartTranslations();

} // namespace brisel
