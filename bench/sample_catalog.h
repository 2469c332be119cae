#pragma once

#include "app/session.h"
#include "bench/temp_folder.h"
#include "ui/system/archive/zip_extractor.h"

#include <cstdio>

namespace bench {

/// A sample catalogue, unpacked.
class SampleCatalog {
public:
    SampleCatalog() {
        const auto& folder = m_folder.path();
        const auto unpacked = ui::system::ZipExtractor().extract(TAVORINE_SAMPLE, "*", folder);
        if (unpacked != platform::Archive::Result::extracted)
            std::fputs("the sample cannot be unpacked\n", stderr);
        session.folders = {folder, folder, folder};
        session.layout = {"50", "2", "3"};
    }

    app::Session session;

private:
    TempFolder m_folder{"sample"};
};

}
