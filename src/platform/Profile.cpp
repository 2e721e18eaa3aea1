#include "platform/Profile.h"

#include "platform/Windows1252.h"

#include <QFile>
#include <QList>

// Choices where the original is not pinned down: lines this code writes end in CR LF, a rewritten
// key line keeps the end it had; a key line is rewritten with the key as the caller spells it; a
// new key goes right after the section's last key line (after its header when it has none), blank
// and ";" lines being no key lines; only the first section of a name counts; a line without "=" is
// a key with an empty value; characters outside Windows-1252 are written as "?"; nothing is ever
// deleted (an empty value writes "key=").

namespace {
const QByteArray kLineEnd = QByteArrayLiteral("\r\n");

// A line of the file as it stands, with its own end ("\r\n", "\n", or none on the last line).
struct Line {
    QByteArray text;
    QByteArray end;
};

QList<Line> splitLines(const QByteArray& data) {
    QList<Line> lines;
    qsizetype start = 0;
    while (start < data.size()) {
        const qsizetype newline = data.indexOf('\n', start);
        if (newline < 0) {
            lines << Line{data.mid(start), QByteArray()};
            break;
        }
        const bool cr = newline > start && data[newline - 1] == '\r';
        lines << Line{data.mid(start, newline - start - (cr ? 1 : 0)),
                      cr ? kLineEnd : QByteArrayLiteral("\n")};
        start = newline + 1;
    }
    return lines;
}

bool sameName(const QString& inFile, const QString& asked) {
    return inFile.compare(asked.trimmed(), Qt::CaseInsensitive) == 0;
}

// "[name]" gives the name; any other line a null string.
QString sectionName(const QString& line) {
    const QString t = line.trimmed();
    if (!t.startsWith(u'['))
        return QString();
    const qsizetype close = t.indexOf(u']');
    return t.mid(1, close < 0 ? -1 : close - 1).trimmed();
}

// Where a key stands in the file: its section's header, the section's last key line, the key line.
struct Place {
    int section = -1;
    int lastKey = -1;
    int key = -1;
    QString value;
};

Place locate(const QList<Line>& lines, const QString& section, const QString& key) {
    Place place;
    for (int i = 0; i < lines.size(); ++i) {
        const QString text = decodeWindows1252(lines[i].text);
        const QString name = sectionName(text);
        if (!name.isNull()) {
            if (place.section >= 0)
                break;
            if (sameName(name, section))
                place.section = place.lastKey = i;
            continue;
        }
        const QString t = text.trimmed();
        if (place.section < 0 || t.isEmpty() || t.startsWith(u';'))
            continue;
        place.lastKey = i;
        const qsizetype equals = t.indexOf(u'=');
        if (!sameName(t.left(equals).trimmed(), key))
            continue;
        place.key = i;
        QString value = equals < 0 ? QString() : t.mid(equals + 1).trimmed();
        if (value.size() >= 2 && value.startsWith(u'"') && value.endsWith(u'"'))
            value = value.mid(1, value.size() - 2);
        place.value = value;
        break;
    }
    return place;
}

// A missing file reads as empty; false only for one that is there and can't be read.
bool readLines(const QString& file, QList<Line>& lines) {
    QFile f(file);
    if (!f.exists())
        return true;
    if (!f.open(QIODevice::ReadOnly))
        return false;
    lines = splitLines(f.readAll());
    return true;
}
} // namespace

int GetPrivateProfileString(const QString& section, const QString& key, const QString& defaultValue,
                            QString& out, int size, const QString& file) {
    QList<Line> lines;
    readLines(file, lines);
    const Place place = locate(lines, section, key);
    const QString value = place.key >= 0 ? place.value : defaultValue;
    out = size > 0 ? value.left(size - 1) : QString();
    return int(out.size());
}

bool WritePrivateProfileString(const QString& section, const QString& key, const QString& value,
                               const QString& file) {
    // Rewritten where it stands, as the original did, not replaced through a new file: a writable
    // file in a folder the user can't write (the updater's mailbox) takes the value, a read-only
    // file refuses it. Only a missing file needs the folder. The content goes in one write.
    QFile f(file);
    if (!f.open(QIODevice::ReadWrite))
        return false;
    QList<Line> lines = splitLines(f.readAll());
    const Place place = locate(lines, section, key);
    const QByteArray entry = encodeWindows1252(key.trimmed() + u'=' + value);
    if (place.key >= 0) {
        Line& line = lines[place.key];
        line = Line{entry, line.end.isEmpty() ? kLineEnd : line.end};
    } else {
        // A line we put something after must end first.
        const int after = place.section >= 0 ? place.lastKey : int(lines.size()) - 1;
        if (after >= 0 && lines[after].end.isEmpty())
            lines[after].end = kLineEnd;
        if (place.section >= 0) {
            lines.insert(after + 1, Line{entry, kLineEnd});
        } else {
            lines << Line{encodeWindows1252(u'[' + section.trimmed() + u']'), kLineEnd};
            lines << Line{entry, kLineEnd};
        }
    }
    QByteArray data;
    for (const Line& line : lines)
        data += line.text + line.end;
    return f.seek(0) && f.write(data) == data.size() && f.flush() && f.resize(data.size());
}
