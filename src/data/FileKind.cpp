#include "data/FileKind.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr char SqliteMagic[] = "SQLite format 3"; // followed by a NUL
constexpr char JetMagic[] = "Standard Jet DB";
constexpr char AceMagic[] = "Standard ACE DB";
// Page 0 of an Access file: 00 01 00 00, the engine's name from 4, its version at 0x14.
constexpr int AccessNameOffset = 4;
constexpr int AccessVersionOffset = 0x14;
constexpr int HeaderBytes = AccessVersionOffset + 1;

bool hasAt(const QByteArray& data, int offset, const char* text, int length) {
    return data.size() >= offset + length && data.mid(offset, length) == QByteArray(text, length);
}

} // namespace

FileKind fileKindFromHeader(const QByteArray& head) {
    if (hasAt(head, 0, SqliteMagic, int(sizeof SqliteMagic)))
        return FileKind::SQLite;
    if (head.size() < HeaderBytes || !hasAt(head, 0, "\x00\x01\x00\x00", 4))
        return FileKind::Other;
    const int nameLength = int(sizeof JetMagic); // the trailing NUL belongs to the name
    const auto version = static_cast<unsigned char>(head[AccessVersionOffset]);
    if (hasAt(head, AccessNameOffset, JetMagic, nameLength)) {
        if (version == 0)
            return FileKind::Jet3;
        if (version == 1)
            return FileKind::Jet4;
        return FileKind::Other;
    }
    if (hasAt(head, AccessNameOffset, AceMagic, nameLength) && version >= 2)
        return FileKind::Ace;
    return FileKind::Other;
}

FileKind detectFileKind(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists() || info.isDir())
        return FileKind::Missing;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FileKind::Other;
    return fileKindFromHeader(file.read(32));
}

bool isAccessKind(FileKind kind) {
    return kind == FileKind::Jet3 || kind == FileKind::Jet4 || kind == FileKind::Ace;
}
