#include "platform/SingleInstance.h"

#include "platform/Paths.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLockFile>
#include <map>
#include <memory>

bool PrevInstance() {
    static std::map<QString, std::unique_ptr<QLockFile>> held;
    const QString key = QString::fromLatin1(
        QCryptographicHash::hash(machineFolder().toUtf8(), QCryptographicHash::Sha1).toHex().left(12));
    auto it = held.find(key);
    if (it != held.end())
        return false; // this process is the first
    auto lock = std::make_unique<QLockFile>(QDir::temp().filePath(QStringLiteral("zarvel-%1.lock").arg(key)));
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0))
        return true;
    held.emplace(key, std::move(lock));
    return false;
}
