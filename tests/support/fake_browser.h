#pragma once

#include "platform/browser.h"
#include "tests/support/journal.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace support {

/// Writes down the file's name and keeps what it was to show.
class FakeBrowser : public platform::Browser {
public:
    explicit FakeBrowser(Journal& journal) : m_journal(journal) {}

    std::filesystem::path file;
    std::string page;

    void show(const std::filesystem::path& shownFile, std::string_view bytes,
              std::string_view place = {}) override {
        m_journal.add("page " + shownFile.filename().string() + std::string(place));
        file = shownFile;
        page = bytes;
    }

private:
    Journal& m_journal;
};

}
