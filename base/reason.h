#pragma once

#include <QCoreApplication>

#include <cstring>

namespace brisel
{

/// Why a file was left out of a run. A reason is declared beside the code that gives it, with its
/// text marked as QT_TRANSLATE_NOOP("RunReport", "..."). Reasons with the same text are equal.
class Reason
{
public:
    enum class Kind {
        Failure,
        Skip, ///< the user chose it
    };

    explicit constexpr Reason(const char *text, Kind kind = Kind::Failure)
        : m_text(text), m_isSkip(kind == Kind::Skip)
    {
    }

    /// In the current language.
    QString text() const { return translated(m_text); }
    /// As it is declared; translated() gives its text.
    const char *source() const { return m_text; }
    static QString translated(const char *source)
    {
        return QCoreApplication::translate("RunReport", source);
    }
    bool isSkip() const { return m_isSkip; }

    friend bool operator==(const Reason &a, const Reason &b)
    {
        return std::strcmp(a.m_text, b.m_text) == 0;
    }
    friend bool operator<(const Reason &a, const Reason &b)
    {
        return std::strcmp(a.m_text, b.m_text) < 0;
    }

private:
    const char *m_text;
    bool m_isSkip;
};

} // namespace brisel
