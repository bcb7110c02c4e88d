#pragma once
// The database password of an Access file, read from its header page, and the check
// of that password against the program's list of project passwords.
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

// The passwords a project may carry, in the order they are tried.
QStringList projectPasswordList();

// The password stored in the header of an Access file ("" when it has none);
// nullopt when the file is missing, too short or not an Access file.
std::optional<QString> readAccessPassword(const QString& path);
// The same from the bytes of page 0 (at least its first 0x98 bytes).
std::optional<QString> accessPasswordFromHeader(const QByteArray& page0);

// The list entry a file with this password opens with: the first entry when the file
// has no password, the equal entry when the password is listed, otherwise nullopt.
std::optional<QString> matchPassword(const QString& filePassword, const QStringList& list);
