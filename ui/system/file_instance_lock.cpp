#include "ui/system/file_instance_lock.h"

#include <QCryptographicHash>
#include <QDir>
#include <QStandardPaths>

namespace ui::system {
namespace {

// The same for every way in which the folder can be written.
QString nameOf(const std::filesystem::path& folder) {
    std::error_code error;
    const auto real = std::filesystem::canonical(folder, error);
    auto name = QString::fromStdU16String((error ? folder : real).u16string());
#ifdef _WIN32
    name = name.toCaseFolded();
#endif
    return name;
}

QString lockName(const std::filesystem::path& programFolder) {
    const auto hash = QCryptographicHash::hash(nameOf(programFolder).toUtf8(), QCryptographicHash::Sha256);
    return "tavorine-" + hash.toHex().left(16) + ".lock";
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
