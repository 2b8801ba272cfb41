#pragma once

#include "songfile/songinfo.h"
#include "tests/app/samplewindow.h"

#include <QLineEdit>

namespace brisel
{

/// Common functions for tests of the search in the library's table.
class FilterTest : public QObject
{
protected:
    void openWindow()
    {
        m_sample = std::make_unique<SampleWindow>();
        m_edited.clear();
    }
    void closeWindow() { closeVerified(m_sample); }
    QLineEdit *field() const
    {
        return m_sample->window->findChild<QLineEdit *>(u"searchLineEdit"_qs);
    }
    QLabel *hint() const { return m_sample->table->findChild<QLabel *>(u"emptyTableHint"_qs); }
    void addSong(const QString &title, const QString &artist, const QString &genre,
                 const QString &author, const QString &shortName) const
    {
        SongInfo info;
        info.title = title;
        info.artist = artist;
        info.genre = genre;
        info.author = author;
        info.shortName = shortName;
        info.fileName = u"/nowhere/"_qs + shortName;
        QVERIFY(m_sample->model->addSong(info));
    }
    void addSamples() const
    {
        addSong(u"Perché no"_qs, u"Anna Bianchi"_qs, u"Valzer"_qs, u"C. Verdi"_qs, u"uno.mid"_qs);
        addSong(u"SOLE MIO"_qs, u"Gli Àmici"_qs, u"Tango"_qs, u"D. Rossi"_qs, u"due.mp3"_qs);
        addSong(u"Straße"_qs, u"Anna Neri"_qs, u"Polka"_qs, u"E. Rossi"_qs, u"tre.zb3"_qs);
    }
    void type(const QString &text) const
    {
        field()->clear();
        QTest::keyClicks(field(), text);
    }
    QString shownNames() const
    {
        QStringList names;
        for (int row = 0; row < m_sample->model->rowCount(); ++row) {
            if (!m_sample->table->isRowHidden(row))
                names.append(m_sample->model->shortName(row).section(u'.', 0, 0));
        }
        return names.join(u' ');
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(m_sample->window->windowHandle(), key, modifiers);
    }
    void activate() const
    {
        m_sample->window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_sample->window.get()));
    }
    /// Answers the next edit dialog by its "Salva", and records its title field.
    void expectEdit()
    {
        m_sample->script.expect("DataEditDialog", [this](QWidget *widget) {
            m_edited = widget->findChild<QLineEdit *>(u"titleLineEdit"_qs)->text();
            DialogScript::click(widget, u"savePushButton"_qs);
        });
    }

    std::unique_ptr<SampleWindow> m_sample;
    QString m_edited;
};

} // namespace brisel
