#include "ui/system/instance_lock.h"

#include <QCryptographicHash>
#include <QDir>
#include <QStandardPaths>

namespace ui::system {
namespace {

QString lockName(const std::filesystem::path& programFolder) {
    std::error_code error;
    const auto real = std::filesystem::canonical(programFolder, error);
    const auto path = QByteArray::fromStdString((error ? programFolder : real).string());
    return "tavorine-" + QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().left(16) +
           ".lock";
}

}

bool FileInstanceLock::acquire(const std::filesystem::path& programFolder) {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    folder.mkpath(".");
    m_lock = std::make_unique<QLockFile>(folder.filePath(lockName(programFolder)));
    m_lock->setStaleLockTime(0); // a running copy may be as old as it likes
    return m_lock->tryLock() || m_lock->error() != QLockFile::LockFailedError;
}

}
