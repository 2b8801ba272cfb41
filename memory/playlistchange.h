#pragma once

#include <QList>
#include <QUndoCommand>

#include <functional>

namespace brisel
{

/// One change of a playlist. It keeps the entries before and after, as numbers of records.
class PlaylistChange : public QUndoCommand
{
public:
    struct State {
        qsizetype playlist = 0;
        QList<quint32> entries;
        QList<qsizetype> rows; ///< entries that are selected in this state
    };
    using Show = std::function<void(const State &)>;

    /// With \a isStep the change is joined with the step before it if that moved the same entries.
    PlaylistChange(State before, State after, bool isStep, Show show)
        : m_before(std::move(before)), m_after(std::move(after)), m_isStep(isStep),
          m_show(std::move(show))
    {
    }

    void undo() override { m_show(m_before); }
    void redo() override { m_show(m_after); }
    int id() const override { return m_isStep ? 1 : -1; }

    bool mergeWith(const QUndoCommand *next) override
    {
        const auto *step = static_cast<const PlaylistChange *>(next);
        if (step->m_before.playlist != m_after.playlist || step->m_before.rows != m_after.rows)
            return false;
        m_after = step->m_after;
        setObsolete(m_after.entries == m_before.entries);
        return true;
    }

private:
    State m_before;
    State m_after;
    const bool m_isStep;
    Show m_show;
};

} // namespace brisel
