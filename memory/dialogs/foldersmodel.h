#pragma once

#include "memory/dialogs/twolevelmodel.h"
#include "memory/memorylook.h"

#include <QIcon>
#include <QSet>

#include <array>

namespace brisel
{

/// What lies on a memory and is not just a song of the index, for a tree: a group for each kind,
/// with its files and folders.
class FoldersModel : public TwoLevelModel
{
    Q_OBJECT

public:
    enum Column { Path, Size, Note, ColumnCount };

    using TwoLevelModel::TwoLevelModel;

    /// Shows the findings of \a look, which must be done; null shows nothing.
    void setLook(const MemoryLook *look);
    /// Shows songs of the same content, which stand together.
    void setDuplicates(const QList<QList<MemoryLook::SongFile>> &duplicates);

    /// The paths below the root that \a index, of a finding or a group, stands for. The group of
    /// the duplicates stands for all but the first of each content.
    QStringList pathsOf(const QModelIndex &index) const;
    /// The number of contents of the duplicates whose paths are all among \a paths.
    int lastCopies(const QSet<QString> &paths) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Line {
        MemoryLook::Detail detail = MemoryLook::Detail::None;
        QString path;
        qint64 size = -1;     ///< bytes; -1 if unknown
        QString twin;         ///< another path of the same content
        bool isFirst = false; ///< of its content
    };
    /// The groups of the kinds, and that of the duplicates.
    static constexpr std::size_t groups = MemoryLook::kinds + 1;
    static constexpr std::size_t duplicatesGroup = MemoryLook::kinds;

    void showGroups();
    static QString groupText(std::size_t group);
    static QString noteOf(std::size_t group, const Line &line);
    QString text(std::size_t group, const Line &line, int column) const;

    std::array<QList<Line>, groups> m_lines;
    QList<std::size_t> m_shown; ///< the groups that have lines
};

} // namespace brisel
