#pragma once

#include "base/files.h"
#include "tests/support/test_folder.h"

#include <QByteArray>
#include <QString>

#include <filesystem>
#include <string>

namespace support {

/// Shell scripts in place of the system's commands, the only ones in PATH while this lives.
class StandInCommands {
public:
    StandInCommands() { qputenv("PATH", QByteArray::fromStdString(folder.string())); }

    ~StandInCommands() { qputenv("PATH", m_path); }

    StandInCommands(const StandInCommands&) = delete;
    StandInCommands& operator=(const StandInCommands&) = delete;

    /// Answers with the command's path.
    QString install(const std::string& name, const std::string& script) const {
        const auto file = folder / name;
        base::replaceFile(file, "#!/bin/sh\nPATH=/usr/bin:/bin\n" + script + "\n");
        std::filesystem::permissions(file, std::filesystem::perms::owner_exec,
                                     std::filesystem::perm_options::add);
        return QString::fromStdString(file.string());
    }

    /// A script that writes down its arguments and its input.
    QString installRecorder(const std::string& name, const std::string& afterwards = {}) const {
        const auto place = "'" + folder.string();
        return install(name, "printf '[%s]' \"$@\" > " + place + "/arguments'\ncat > " + place + "/input'\n" +
                                 afterwards);
    }

    [[nodiscard]] std::string recorded(const char* what) const {
        return base::readFile(folder / what).value_or("nothing");
    }

    const std::filesystem::path folder = testFolder(".commands");

private:
    QByteArray m_path = qgetenv("PATH");
};

}
