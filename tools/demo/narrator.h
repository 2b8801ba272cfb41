#pragma once

#include <QString>

class QWidget;

/// Tells the road on standard output, keeps the pictures and counts what went wrong.
class Narrator
{
public:
    /// Pictures go to \a folder under "<number>-<name>.<language>.png".
    Narrator(const QString &folder, const QString &language);

    void step(const QString &title);
    void tell(const QString &line);
    /// Tells that \a what is so, or that it isn't. Returns \a good.
    bool check(bool good, const QString &what);
    /// As check(); tells both values when they differ.
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
