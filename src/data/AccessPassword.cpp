#include "data/AccessPassword.h"

#include "data/FileKind.h"

#include <QFile>
#include <QtEndian>
#include <array>
#include <cmath>
#include <cstdint>

namespace {

constexpr std::array<std::uint8_t, 4> HeaderKey = {0xC7, 0xDA, 0x39, 0x6B};
constexpr int MaskStart = 0x18;
constexpr int Jet3MaskLength = 126;
constexpr int Jet4MaskLength = 128;
constexpr int PasswordOffset = 0x42;
constexpr int Jet3PasswordBytes = 20;
constexpr int Jet4PasswordBytes = 40;
constexpr int CreationDateOffset = 0x72;
constexpr int HeaderLength = MaskStart + Jet4MaskLength;

// The stream cipher that hides the header fields from 0x18 on; applying it twice gives
// the input back.
void rc4(QByteArray& data, int start, int length) {
    std::array<std::uint8_t, 256> s{};
    for (int i = 0; i < 256; ++i)
        s[i] = std::uint8_t(i);
    std::uint8_t j = 0;
    for (int i = 0; i < 256; ++i) {
        j = std::uint8_t(j + s[i] + HeaderKey[i % HeaderKey.size()]);
        std::swap(s[i], s[j]);
    }
    std::uint8_t a = 0;
    std::uint8_t b = 0;
    for (int k = 0; k < length; ++k) {
        a = std::uint8_t(a + 1);
        b = std::uint8_t(b + s[a]);
        std::swap(s[a], s[b]);
        data[start + k] = char(std::uint8_t(data[start + k]) ^ s[std::uint8_t(s[a] + s[b])]);
    }
}

// In Jet 4 and later the password bytes are also mixed with the file's creation day.
std::array<std::uint8_t, 4> creationDayMask(const QByteArray& decoded) {
    const double created = qFromLittleEndian<double>(decoded.constData() + CreationDateOffset);
    std::int32_t day = 0;
    if (std::isfinite(created) && std::fabs(created) < 2147483647.0)
        day = std::int32_t(std::floor(created));
    std::array<std::uint8_t, 4> mask{};
    qToLittleEndian(day, mask.data());
    return mask;
}

} // namespace

QStringList projectPasswordList() {
    // One constant, its passwords joined by a broken bar.
    return QStringLiteral("Plumbago47\u00A6Quernstep").split(QChar(0x00A6));
}

std::optional<QString> accessPasswordFromHeader(const QByteArray& page0) {
    const FileKind kind = fileKindFromHeader(page0);
    if (!isAccessKind(kind) || page0.size() < HeaderLength)
        return std::nullopt;
    QByteArray decoded = page0.left(HeaderLength);
    rc4(decoded, MaskStart, kind == FileKind::Jet3 ? Jet3MaskLength : Jet4MaskLength);
    if (kind == FileKind::Jet3) {
        QByteArray bytes = decoded.mid(PasswordOffset, Jet3PasswordBytes);
        const qsizetype end = bytes.indexOf('\0');
        if (end >= 0)
            bytes.truncate(end);
        return QString::fromLatin1(bytes);
    }
    const auto mask = creationDayMask(decoded);
    QByteArray bytes = decoded.mid(PasswordOffset, Jet4PasswordBytes);
    for (int i = 0; i < bytes.size(); ++i)
        bytes[i] = char(std::uint8_t(bytes[i]) ^ mask[i % 4]);
    QString password;
    for (int i = 0; i + 1 < bytes.size(); i += 2) {
        const quint16 unit = qFromLittleEndian<quint16>(bytes.constData() + i);
        if (unit == 0)
            break;
        password.append(QChar(unit));
    }
    return password;
}

std::optional<QString> readAccessPassword(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return accessPasswordFromHeader(file.read(HeaderLength));
}

std::optional<QString> matchPassword(const QString& filePassword, const QStringList& list) {
    if (list.isEmpty())
        return std::nullopt;
    if (filePassword.isEmpty())
        return list.first();
    // Passwords compare exactly: the engine tells upper and lower case apart.
    if (list.contains(filePassword, Qt::CaseSensitive))
        return filePassword;
    return std::nullopt;
}
