#include "tests/app/editwindows.h"

#include "library/dialogs/dataeditdialog.h"
#include "library/dialogs/markersdialog.h"
#include "songfile/metasong.h"

#include <QComboBox>
#include <QLineEdit>

namespace brisel
{

namespace
{

const QList<Marker> sampleMarkers{
    {QStringLiteral("Intro"), 1},       {QStringLiteral("Strofa"), 5},
    {QStringLiteral("Ritornello"), 21}, {QStringLiteral("Strofa"), 37},
    {QStringLiteral("Assolo"), 53},     {QStringLiteral("Finale"), 69}};

std::unique_ptr<DataEditDialog> makeEditDialog()
{
    auto dialog = std::make_unique<DataEditDialog>();
    dialog->setArtistsCombo({QStringLiteral("Gli Amici del Porto")});
    dialog->setGenresCombo({QStringLiteral("Valzer lento")});
    dialog->setKeysCombo(MetaSong::getKeysList());
    SongInfo info;
    info.fileName = longPath;
    info.format = QStringLiteral("MIDI");
    info.title = QStringLiteral("Il cielo sopra il mare");
    info.artist = QStringLiteral("Gli Amici del Porto");
    info.genre = QStringLiteral("Valzer lento");
    info.author = QStringLiteral("Anna Bianchi");
    info.key = MetaSong::getKeysList().constFirst();
    info.length = 59 * 60 + 58;
    info.userBpm = 120;
    info.markers = sampleMarkers;
    dialog->setOtherInfo(info);
    return dialog;
}

} // namespace

std::unique_ptr<QWidget> makeEditWindow()
{
    return makeEditDialog();
}

std::unique_ptr<QWidget> makeEditWindowWithHints()
{
    std::unique_ptr<DataEditDialog> dialog = makeEditDialog();
    QString cyrillic;
    for (char16_t letter = u'А'; letter <= u'Я'; ++letter)
        cyrillic += letter;
    const auto type = [&dialog](const char *name, const QString &text) {
        auto *control = dialog->findChild<QWidget *>(QString::fromLatin1(name));
        const auto *combo = qobject_cast<QComboBox *>(control);
        (combo != nullptr ? combo->lineEdit() : qobject_cast<QLineEdit *>(control))->setText(text);
    };
    type("titleLineEdit", QStringLiteral("Città Ω"));
    type("artistComboBox", cyrillic);
    type("genreComboBox", QStringLiteral("Rock ’n’ Roll"));
    type("authorLineEdit", QStringLiteral("Dvořák – Škroup"));
    return dialog;
}

std::unique_ptr<QWidget> makeEditWindowOfSeveral()
{
    std::unique_ptr<DataEditDialog> dialog = makeEditDialog();
    SharedSongs songs;
    songs.songs = 12;
    songs.info.format = QStringLiteral("MIDI, MP3");
    songs.info.artist = QStringLiteral("Gli Amici del Porto");
    songs.info.userBpm = 120;
    songs.shared.insert(SongFields::Field::Artist);
    songs.shared.insert(SongFields::Field::Bpm);
    dialog->setSeveral(songs);
    auto *genre = dialog->findChild<QComboBox *>(QStringLiteral("genreComboBox"))->lineEdit();
    genre->insert(QStringLiteral("Valzer lento"));
    emit genre->textEdited(genre->text());
    return dialog;
}

std::unique_ptr<QWidget> makeMarkersWindow()
{
    return std::make_unique<MarkersDialog>(sampleMarkers, true);
}

} // namespace brisel
