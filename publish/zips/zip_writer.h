#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace publish {

/// Writes a zip: entries in the order in which they are added, all of the same date, so that the same
/// entries give the same bytes on any machine with the same zlib, whatever the number of threads
/// (docs/file-formats.md, "Catalogue archive and marker file"). Kinds of files that are packed already are
/// stored, others deflated, in pieces on several threads. Needs some 30 MB at most, however large the files.
///
/// The zip grows beside its place under a hidden name. Only `finish` puts it there, complete and on the
/// disk; until then, and when anything fails, an old zip stays as it was. What a run that was killed has
/// left beside the zip goes with the next one.
///
/// Everything throws base::FileError in words for the supplier: the zip cannot be written (and why), a file
/// cannot be read or changes while it is read. A writer that has thrown can only be destroyed.
class ZipWriter {
public:
    /// 0 threads are as many as the machine has, up to 16. One thread starts no other.
    explicit ZipWriter(const std::filesystem::path& zip, unsigned threads = 0);
    ~ZipWriter();
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    /// The file is read before this returns. The name is UTF-8 with "/" between folders; no two entries may
    /// have the same one.
    void addFile(std::string_view name, const std::filesystem::path& file);

    /// The text is no more needed when this returns.
    void addText(std::string_view name, std::string_view text);

    void finish();

private:
    class Parts;
    std::unique_ptr<Parts> m_parts;
};

}
