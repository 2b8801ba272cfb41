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

/// Lets the user correct one song's data, and copy some of it to the whole list. The main window
/// owns one and uses it for every song: setOtherInfo() clears all data of the last one.
class DataEditDialog : public QDialog
{
    Q_OBJECT

public:
    /// The results of exec().
    enum Answer { Rejected = 0, Accepted = 1 };

    explicit DataEditDialog(QWidget *parent = nullptr);
    ~DataEditDialog() override;

    void setArtistsCombo(const QStringList &artists);
    void setGenresCombo(const QStringList &genres);
    void setKeysCombo(const QStringList &keys);

    /// Shows \a info. During typing, a hint under a text shows which of its characters become "?"
    /// in the 8-bit formats: in this song, or in those to which the text is copied. A key that is
    /// not in the key list leaves the list without a current entry.
    void setOtherInfo(const SongInfo &info);

    /// Writes title, author, artist, genre, key, length and userBpm of the dialog into \a info and
    /// leaves the rest of it, and the key while the list has no current entry. A text that the user
    /// did not edit is the loaded one, of any length. An empty or non-numeric number counts as 0.
    void getInfo(SongInfo &info) const;

    bool isApplyToAllAuthor() const;
    bool isApplyToAllArtist() const;
    bool isApplyToAllGenre() const;
    /// Returns true if every song's title must be made from its file name.
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
    void on_savePushButton_clicked() { done(Accepted); }
    void on_exitPushButton_clicked() { done(Rejected); }

private:
    struct TextField {
        QWidget *control;
        QLineEdit *edit; ///< the control, or its line edit
        QString SongInfo::*datum;
        QCheckBox *toAll;   ///< copies the text to the list; nullptr if it can't be copied
        QLabel *hint;       ///< shows which characters the song can't contain
        QString shown = {}; ///< the loaded text, truncated to the edit's limit
    };

    void updateHints();
    void showHint(const TextField &field) const;
    QString hintFor(const TextField &field) const;
    void confirmApplyToAll(QCheckBox *box, const QString &question);

    std::unique_ptr<Ui::DataEditDialog> m_ui;
    std::unique_ptr<SongInfo> m_loaded;
    std::vector<TextField> m_texts;
    int m_hintRoom = 0; ///< pixels by which the hints increased the dialog's height
};

} // namespace brisel
