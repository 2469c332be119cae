#include "ui/system/running_program_file.h"

#include "ui/system/file_attributes.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace ui::system {

std::filesystem::path RunningProgramFile::path() const {
    return QFileInfo(QCoreApplication::applicationFilePath()).filesystemAbsoluteFilePath();
}

bool RunningProgramFile::isReadOnly() const {
    return isOnlyReadOnly(path());
}

std::filesystem::path ownFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdU16String();
}

std::filesystem::path keptFolder() {
    const auto own = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    return own.isEmpty() ? std::filesystem::path() : std::filesystem::path(own.toStdU16String()) / "kept";
}

}
