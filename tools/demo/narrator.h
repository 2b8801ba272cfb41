#pragma once

#include <QString>

class QWidget;

namespace brisel
{

/// Prints the steps of the tour to the standard output, saves the pictures and counts failures.
class Narrator
{
public:
    /// Pictures go to \a folder under "<number>-<name>.<language>.png".
    Narrator(const QString &folder, const QString &language);

    void step(const QString &title);
    void print(const QString &line);
    /// Prints \a what as passed or failed. Returns \a good.
    bool check(bool good, const QString &what);
    /// Like check(); prints both values if they differ.
    bool checkEqual(qsizetype actual, qsizetype expected, const QString &what);
    void takePicture(QWidget *widget, const QString &name);

    int failures() const { return m_failures; }
    int pictures() const { return m_pictures; }

private:
    QString m_folder;
    QString m_language;
    int m_steps = 0;
    int m_pictures = 0;
    int m_failures = 0;
};

} // namespace brisel
