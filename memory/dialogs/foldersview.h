#pragma once

#include "memory/duplicatesearch.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace brisel
{

class FoldersModel;

namespace Ui
{
class FoldersView;
}

/// What lies on a memory and is not just a song of the index, and a search for duplicates.
class FoldersView : public QWidget
{
    Q_OBJECT

public:
    explicit FoldersView(QWidget *parent = nullptr);
    ~FoldersView() override;

    /// Shows the findings of \a look at the memory \a root, which must be done and outlive this, or
    /// the next call; null shows nothing. A search for duplicates ends.
    void setLook(const QString &root, const MemoryLook *look);
    /// The absolute paths of the chosen files and folders, in the order shown.
    QStringList chosenPaths() const;
    /// The number of contents of duplicates of which all copies are chosen.
    int lastCopies() const;

signals:
    void choiceChanged();
    void contextMenuRequested(const QPoint &globalPos);

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_duplicatesPushButton_clicked();

private:
    void readSome();
    void endSearch();
    void showState();

    std::unique_ptr<Ui::FoldersView> m_ui;
    FoldersModel *m_model;
    QString m_root;
    const MemoryLook *m_look = nullptr;
    std::unique_ptr<DuplicateSearch> m_search; ///< null if none is under way
    bool m_wasSearched = false;                ///< to its end
    bool m_hasDuplicates = false;
    QTimer m_reading; ///< active during a search
};

} // namespace brisel
