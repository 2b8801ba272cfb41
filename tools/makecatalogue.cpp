#include "tools/cataloguecsv.h"
#include "tools/cataloguefile.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

using namespace brisel;

namespace
{

int refuse(const QString &message, const QString &output)
{
    QTextStream(stderr) << message << '\n';
    if (!output.isEmpty())
        QFile::remove(output);
    return 1;
}

} // namespace

/// makecatalogue <songs.csv> <output>: makes the reference catalogue from its source.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return refuse(QStringLiteral("usage: makecatalogue <songs.csv> <output>"), {});
    const QString &source = arguments.at(1);
    const QString &output = arguments.at(2);

    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(QStringLiteral("%1: %2").arg(source, file.errorString()), output);
    QList<CatalogueRow> rows;
    CatalogueCsvError wrong;
    if (!readCatalogueCsv(file.readAll(), rows, wrong))
        return refuse(
            QStringLiteral("%1:%2: %3").arg(source, QString::number(wrong.line), wrong.text),
            output);
    QString error;
    if (!writeCatalogue(output, rows, error))
        return refuse(QStringLiteral("%1: %2").arg(output, error), output);
    return 0;
}
