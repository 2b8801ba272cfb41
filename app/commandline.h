#pragma once

#include <QCoreApplication>
#include <QStringList>

#include <memory>

class QCommandLineParser;

namespace brisel
{

/// The arguments of the program: songs and folders, "--help" and "--version", and the options of
/// Qt, which Qt itself evaluates.
///
/// An argument that begins with "-" is a song if there is a file of that name, and so is each one
/// after "--".
class CommandLine
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    static constexpr int usageError = 2; ///< exit status

    /// \a arguments: without the name of the program.
    explicit CommandLine(const QStringList &arguments);
    ~CommandLine();
    CommandLine(const CommandLine &) = delete;
    CommandLine &operator=(const CommandLine &) = delete;

    /// Returns true if the program only answers and ends: neither a display nor a window is needed.
    [[nodiscard]] bool isAnswer() const;
    /// Writes the help or the version to the standard output, or which option is unknown to the
    /// standard error, in the language of the installed translators. Returns the exit status.
    [[nodiscard]] int answer() const;
    /// The songs and folders, in their order.
    QStringList paths() const;

private:
    QString helpText() const;

    std::unique_ptr<QCommandLineParser> m_parser;
    bool m_isUnderstood;
};

/// The arguments of main() without the name of the program.
QStringList argumentsOf(int argc, char **argv);

} // namespace brisel
