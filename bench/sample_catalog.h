#pragma once

#include "app/session.h"
#include "ui/system/archive/zip_extractor.h"

#include <cstdio>
#include <filesystem>

namespace bench {

/// A sample catalogue, unpacked.
class SampleCatalog {
public:
    SampleCatalog() : m_folder(std::filesystem::temp_directory_path() / "tavorine-windows-bench") {
        std::filesystem::remove_all(m_folder);
        std::filesystem::create_directories(m_folder);
        const auto unpacked = ui::system::ZipExtractor().extract(TAVORINE_SAMPLE, "*", m_folder);
        if (unpacked != platform::Archive::Result::extracted)
            std::fputs("the sample cannot be unpacked\n", stderr);
        session.folders = {m_folder, m_folder, m_folder};
        session.layout = {"50", "2", "3"};
    }

    ~SampleCatalog() { std::filesystem::remove_all(m_folder); }

    SampleCatalog(const SampleCatalog&) = delete;
    SampleCatalog& operator=(const SampleCatalog&) = delete;

    app::Session session;

private:
    std::filesystem::path m_folder;
};

}
