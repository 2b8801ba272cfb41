#pragma once

#include <QDialog>

#include <memory>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace brisel
{

class SongInfo;

namespace Ui
{
class DataEditDialog;
}

/// Lets the user correct one song's data, and spread some of it over the whole list. The main
/// window owns one and uses it for every song: setOtherInfo() leaves nothing of the last one.
class DataEditDialog : public QDialog
{
    Q_OBJECT

public:
    /// What exec() returns.
    enum Answer { Rejected = 0, Accepted = 1 };

    explicit DataEditDialog(QWidget *parent = nullptr);
    ~DataEditDialog() override;

    void setArtistsCombo(const QStringList &artists);
    void setGenresCombo(const QStringList &genres);
    void setKeysCombo(const QStringList &keys);

    /// Shows \a info. As the user types, a hint under a text shows which of its characters become
    /// "?" in the 8-bit formats: in this song, or in those over which the text is to be spread. A
    /// key that is not in the key list leaves the list without a current entry.
    void setOtherInfo(const SongInfo &info);

    /// Writes title, author, artist, genre, key, length and userBpm of the dialog into \a info and
    /// leaves the rest of it, and the key while the list has no current entry. A text that the user
    /// left alone is the loaded one, of any length. An empty or non-numeric number counts as 0.
    void getInfo(SongInfo &info) const;

    bool isApplyToAllAuthor() const;
    bool isApplyToAllArtist() const;
    bool isApplyToAllGenre() const;
    /// True when every song's title is to be made from its file name.
    bool isApplyToAllFname() const;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_radioButtonTitle1_clicked();
    void on_radioButtonTitle2_clicked();
    void on_checkBoxToAllTitle_clicked(bool checked);
    void on_checkBoxToAllArtist_clicked(bool checked);
    void on_checkBoxToAllGenre_clicked(bool checked);
    void on_checkBoxToAllAuthor_clicked(bool checked);
    void on_savePushButton_clicked();
    void on_exitPushButton_clicked();

private:
    struct TextField {
        QWidget *control;
        QLineEdit *edit; ///< the control, or the part of it that holds the text
        QString SongInfo::*datum;
        QCheckBox *toAll;   ///< spreads the text over the list; nullptr when nothing does
        QLabel *hint;       ///< shows which characters the song can't hold
        QString shown = {}; ///< of the loaded text, as much as the edit could take
    };

    void updateHints();
    void showHint(const TextField &field) const;
    QString hintFor(const TextField &field) const;
    void confirmApplyToAll(QCheckBox *box, const QString &question);

    std::unique_ptr<Ui::DataEditDialog> m_ui;
    std::unique_ptr<SongInfo> m_loaded;
    std::vector<TextField> m_texts;
    int m_hintRoom = 0; ///< pixels by which the hints made the dialog higher
};

} // namespace brisel
