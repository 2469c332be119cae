#pragma once

#include <filesystem>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace support {

/// While it lives, an ordinary user may not change the folder's entries.
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(std::filesystem::path folder) : m_folder(std::move(folder)) {
        std::filesystem::permissions(m_folder, written, std::filesystem::perm_options::remove);
    }

    ~ReadOnlyFolder() {
        std::filesystem::permissions(m_folder, std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add);
    }

    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

private:
    static constexpr auto written = std::filesystem::perms::owner_write |
                                    std::filesystem::perms::group_write |
                                    std::filesystem::perms::others_write;

    std::filesystem::path m_folder;
};

/// While it lives, a test that runs as the system's own user, to whom everything is allowed, has the
/// rights of an ordinary one.
class OrdinaryUser {
public:
    OrdinaryUser() { become(nobody); }

    ~OrdinaryUser() { become(0); }

    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr unsigned nobody = 65534;

    static void become(unsigned user) {
#ifndef _WIN32
        if (getuid() == 0 && seteuid(user) != 0)
            throw std::filesystem::filesystem_error("seteuid",
                                                    std::error_code(errno, std::generic_category()));
#else
        static_cast<void>(user);
#endif
    }
};

}
