#pragma once

#include "library/severalsongs.h"
#include "songfile/songinfo.h"

#include <QDialog>
#include <QPointer>

#include <memory>
#include <optional>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace brisel
{

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
    /// The results of exec(). Previous and Next: the user goes on to a neighbour of the song; see
    /// isSaveWanted().
    enum Answer { Rejected = 0, Accepted = 1, Previous = 2, Next = 3 };

    explicit DataEditDialog(QWidget *parent = nullptr);
    ~DataEditDialog() override;

    /// Shows the artists in alphabetical order.
    void setArtistsCombo(const QStringList &artists);
    void setGenresCombo(const QStringList &genres);
    void setKeysCombo(const QStringList &keys);

    /// The songs of the list, and those among them that a search hides: shown by the questions
    /// about all songs. Initially unknown, which is not shown.
    void setListSize(int songs, int hidden);

    /// Whether the song has neighbours to which the user may go. Initially it has none.
    void setNeighbours(bool hasPrevious, bool hasNext);
    /// After Previous or Next: whether the song is to be saved before.
    bool isSaveWanted() const { return m_isSaveWanted; }

    /// Whether the markers of the next song can be changed. Initially they can.
    void setMarkersWritable(bool areWritable) { m_areMarkersWritable = areWritable; }

    /// Shows \a info. During typing, a hint under a text shows which of its characters become "?"
    /// in the 8-bit formats: in this song, or in those to which the text is copied. A key that is
    /// not in the key list leaves the list without a current entry.
    void setOtherInfo(const SongInfo &info);

    /// Shows \a info, as the file has it now, of the song that was shown last and could not be
    /// saved, with what the user has changed in it. Nothing is copied to the list any more.
    void setOtherInfoAgain(const SongInfo &info);

    /// Writes title, author, artist, genre, key, length and userBpm of the dialog into \a info and
    /// leaves the rest of it, and the key while the list has no current entry. A text that the user
    /// did not edit is the loaded one, of any length. An empty or non-numeric number counts as 0.
    void getInfo(SongInfo &info) const;
    /// The markers as the user changed them; nothing if they are as they were.
    std::optional<QList<Marker>> changedMarkers() const;

    /// Shows what several songs share, and a placeholder where they differ, instead of one song.
    void setSeveral(const SharedSongs &songs);
    /// What the user changed for these songs: the fields that were touched.
    SeveralEdit getSeveral() const;

    bool isApplyToAllAuthor() const;
    bool isApplyToAllArtist() const;
    bool isApplyToAllGenre() const;
    /// Returns true if every song's title must be made from its file name.
    bool isApplyToAllFname() const;

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private slots:
    void on_radioButtonTitle1_clicked();
    void on_radioButtonTitle2_clicked();
    void on_previousPushButton_clicked() { askAndGo(Previous); }
    void on_nextPushButton_clicked() { askAndGo(Next); }
    void on_fromNamePushButton_clicked();
    void on_markersPushButton_clicked();
    void on_checkBoxToAllTitle_clicked(bool checked);
    void on_checkBoxToAllArtist_clicked(bool checked);
    void on_checkBoxToAllGenre_clicked(bool checked);
    void on_checkBoxToAllAuthor_clicked(bool checked);
    void on_savePushButton_clicked() { done(Accepted); }
    void on_exitPushButton_clicked() { done(Rejected); }

private:
    using Field = SongFields::Field;
    using FromName = SeveralEdit::FromName;

    struct TextField {
        QWidget *control;
        QLineEdit *edit; ///< the control, or its line edit
        QString SongInfo::*datum;
        Field field;
        QCheckBox *toAll;   ///< copies the text to the list; nullptr if it can't be copied
        QLabel *hint;       ///< shows which characters the song can't contain
        QString shown = {}; ///< the loaded text, truncated to the edit's limit
    };

    void showNumbers(const SongInfo &info);
    void connectWalk();
    bool isChanged() const;
    void askAndGo(Answer where);
    void saveAndGoOn();
    void go(Answer where);
    void focusFirst();
    void connectTouches();
    void touch(Field field);
    void takeFromName(FromName fromName);
    void showMarkers();
    void showSeveral();
    void showPlaceholders();
    void updateHints();
    void showHint(const TextField &field) const;
    QString hintFor(const TextField &field) const;
    void confirmApplyToAll(QCheckBox *box, const QString &question);

    std::unique_ptr<Ui::DataEditDialog> m_ui;
    std::unique_ptr<SongInfo> m_loaded;
    std::vector<TextField> m_texts;
    std::optional<SharedSongs> m_several; ///< empty for one song
    SongFields m_touched = SongFields::none();
    FromName m_fromName = FromName::Nothing;
    QList<Marker> m_markers;
    bool m_areMarkersWritable = true;
    bool m_isSaveWanted = false;
    QPointer<QWidget> m_focused; ///< in the song before, when the user goes from song to song
    QStringList m_artists;       ///< as they were set
    int m_listSongs = 0;
    int m_listHidden = 0;
    int m_hintRoom = 0; ///< pixels by which the hints increased the dialog's height
};

} // namespace brisel
