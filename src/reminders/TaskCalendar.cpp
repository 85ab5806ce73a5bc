#include "reminders/TaskCalendar.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSaveFile>
#include <QtCore/QUuid>

namespace ovrin::TaskCalendar {

namespace {

/// Escapes a text value. Control characters have no place in it; line breaks are written as "\n".
QByteArray escaped(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QByteArray result;
    for (const char c : text.toUtf8()) {
        if (c == '\\' || c == ';' || c == ',')
            (result += '\\') += c;
        else if (c == '\n' || c == '\r')
            result += "\\n";
        else if (static_cast<unsigned char>(c) >= ' ' || c == '\t')
            result += c;
    }
    return result;
}

/// A content line, folded so that no line is longer than 75 octets and no UTF-8 sequence is cut.
void addLine(QByteArray& file, const QByteArray& line)
{
    constexpr qsizetype maximumOctets = 75;
    qsizetype start = 0;
    qsizetype room = maximumOctets;
    while (line.size() - start > room) {
        qsizetype end = start + room;
        while ((static_cast<unsigned char>(line.at(end)) & 0xC0) == 0x80)
            --end;
        file += line.mid(start, end - start) + "\r\n ";
        start = end;
        room = maximumOctets - 1;
    }
    file += line.mid(start) + "\r\n";
}

} // namespace

QByteArray write(const QStringList& items, const QString& recipeTitle, const QDateTime& now)
{
    static const QUuid nameSpace(QStringLiteral("{6d0b5c0e-0a0e-4a53-9b8e-5a1f3a1f7c11}"));
    const QByteArray stamp = now.toUTC().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'")).toLatin1();
    QByteArray file;
    addLine(file, "BEGIN:VCALENDAR");
    addLine(file, "VERSION:2.0");
    addLine(file, "PRODID:-//Ovrin//Grocery List//EN");
    for (qsizetype i = 0; i < items.size(); ++i) {
        const QString seed = QStringLiteral("%1\n%2\n%3\n%4")
                                 .arg(now.toMSecsSinceEpoch())
                                 .arg(i)
                                 .arg(recipeTitle, items.at(i));
        addLine(file, "BEGIN:VTODO");
        addLine(file, "UID:" + QUuid::createUuidV5(nameSpace, seed).toByteArray(QUuid::WithoutBraces));
        addLine(file, "DTSTAMP:" + stamp);
        addLine(file, "SUMMARY:" + escaped(items.at(i)));
        if (!recipeTitle.isEmpty())
            addLine(file, "DESCRIPTION:" + escaped(recipeTitle));
        addLine(file, "STATUS:NEEDS-ACTION");
        addLine(file, "END:VTODO");
    }
    addLine(file, "END:VCALENDAR");
    return file;
}

bool save(const QString& path, const QStringList& items, const QString& recipeTitle, const QDateTime& now)
{
    const QByteArray bytes = write(items, recipeTitle, now);
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

QString fileName(const QString& recipeTitle)
{
    // Of characters, since that is what may be cut; at four bytes each they fit the 255 of a file name.
    constexpr std::size_t longest = 50;
    static const QString suffix = QStringLiteral("Groceries.ics");
    static const QRegularExpression forbidden(QStringLiteral("[\\x00-\\x1F\\x7F/\\\\:*?\"<>|]+"));
    // A leading dot would hide the file.
    static const QRegularExpression leading(QStringLiteral("^[.\\s]+"));
    const std::u32string characters = QString(recipeTitle)
                                          .replace(forbidden, QStringLiteral(" "))
                                          .remove(leading)
                                          .simplified()
                                          .toStdU32String();
    const QString name = QString::fromStdU32String(characters.substr(0, longest)).trimmed();
    return name.isEmpty() ? suffix : QStringLiteral("%1 – %2").arg(name, suffix);
}

} // namespace ovrin::TaskCalendar
