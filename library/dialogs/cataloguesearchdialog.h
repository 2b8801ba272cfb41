#pragma once

#include "db/cataloguesearch.h"

#include <QDialog>
#include <QList>

#include <memory>
#include <optional>

namespace brisel
{

namespace Ui
{
class CatalogueSearchDialog;
}

/// A search in the catalogue for the record of one song. It opens with the best guesses.
class CatalogueSearchDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a info: the data of the song in the file \a fileName (without folder).
    CatalogueSearchDialog(CatalogueSearch &search, const SongInfo &info, const QString &fileName,
                          QWidget *parent = nullptr);
    ~CatalogueSearchDialog() override;

    /// The record that the user chose; empty if the dialog was cancelled.
    std::optional<CatalogueSong> chosen() const;

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void on_searchLineEdit_textEdited(const QString &text);

private:
    void show(const QList<CatalogueSong> &songs);
    void showSong();
    void showHint();

    CatalogueSearch &m_search;
    const QString m_fileName;
    std::unique_ptr<Ui::CatalogueSearchDialog> m_ui;
    QList<CatalogueSong> m_songs; ///< by row
};

} // namespace brisel
