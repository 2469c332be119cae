#pragma once

#include "ui/qt/browser/confined_page.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace ui::qt {

/// Loads bytes into a confined page under a file's own address, in the encoding that they declare (else
/// Windows-1252), opening at the top or at a place in it. Ends in the page's `loadFinished`.
class PageLoader {
public:
    /// `copyMark` goes into the name of the copy that a page too large to be handed over is read from; it
    /// must differ between pages that may load at the same time.
    PageLoader(ConfinedPage& page, ConfinedProfile& profile, std::string copyMark);
    ~PageLoader();
    PageLoader(const PageLoader&) = delete;
    PageLoader& operator=(const PageLoader&) = delete;

    /// The bytes are those of the file; the place is as platform::Browser has it. Throws base::FileError
    /// when a copy is needed and cannot be written.
    void load(const std::filesystem::path& file, std::string_view bytes, std::string_view place = {});

    /// To be called when the load is over; takes the copy away.
    void finish();

private:
    void handOver(const std::filesystem::path& file, std::string_view bytes, std::string_view place);
    void loadCopy(const std::filesystem::path& file, std::string_view bytes, std::string_view place);

    ConfinedPage& m_page;
    ConfinedProfile& m_profile;
    std::string m_copyMark;
    std::filesystem::path m_copy; // empty when there is none
    int m_copies = 0;
};

}
