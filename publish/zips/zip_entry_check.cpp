#include "publish/zips/zip_entry_check.h"

#include "app/zip_files.h"
#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"
#include "ui/system/archive/entry_path.h"
#include "ui/system/archive/zip_reader.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace publish {
namespace {

using ui::system::EntryPath;
using ui::system::ZipListing;
using Weight = Complaint::Weight;

bool leavesTheFolder(const std::string& name) {
    const auto path = base::replaceAll(name, "\\", "/");
    const auto parts = base::split(path, '/');
    return path.starts_with('/') || (path.size() > 1 && path[1] == ':') ||
           std::find(parts.begin(), parts.end(), "..") != parts.end();
}

std::string folded(const std::string& path) {
    return base::upper(base::fromUtf8(path));
}

class EntryCheck {
public:
    Complaints run(const std::vector<ZipListing>& entries) {
        for (const auto& entry : entries)
            check(entry);
        for (const auto& [path, name] : m_files)
            if (m_folders.contains(path))
                complain(
                    Weight::error, name, "zip-entry-file-and-folder",
                    "this is a file and a folder too, in whatever letter case, which no disk can hold; the "
                    "viewer refuses the zip. Please rename one of them");
        return std::move(m_complaints);
    }

private:
    void complain(Weight weight, const std::string& name, const char* rule, std::string text) {
        m_complaints.push_back(entryComplaint(weight, name, rule, std::move(text)));
    }

    void check(const ZipListing& entry) {
        const auto where = ui::system::entryPath(entry.name);
        if (!where)
            return complainOfName(entry.name);
        if (!entry.isPlain)
            return complain(
                Weight::warning, entry.name, "zip-entry-link",
                "this is a link or another special file, which the viewer passes over. Please put "
                "the file itself into the zip");
        checkContents(entry);
        checkPlace(entry.name, *where);
    }

    void complainOfName(const std::string& name) {
        if (leavesTheFolder(name))
            complain(
                Weight::warning, name, "zip-entry-outside",
                "this name leads out of the catalogue's folder; the viewer passes over it. Please make the "
                "zip again inside the folder");
        else
            complain(
                Weight::warning, name, "zip-entry-name",
                "no file can have this name on every system, so the viewer passes over it. Please rename "
                "it without : * ? \" < > | and control characters, not like a device (NUL, COM1), and "
                "without a point or blank at its end");
    }

    void checkContents(const ZipListing& entry) {
        if (!entry.isOpen)
            complain(Weight::error, entry.name, "zip-entry-encrypted",
                     "this is encrypted; the viewer refuses the zip. Please make it without a password");
        else if (!entry.isCommon)
            complain(
                Weight::warning, entry.name, "zip-entry-method",
                "this is packed in a way that not every viewer knows. Please pack it with \"deflate\", as "
                "zip programs do unless told otherwise");
    }

    void checkPlace(const std::string& name, const EntryPath& where) {
        if (!ui::system::fitsOnDisk(where))
            complain(Weight::error, name, "zip-entry-long",
                     "this path does not fit on common disks; the viewer refuses the zip. Please keep to 255 "
                     "bytes a name, 1,000 in all and 32 folders");
        const auto path = folded(where.path);
        if (isUsersOwn(path))
            complain(Weight::warning, name, "zip-entry-users-file",
                     "a file of this name belongs to the customer; the viewer leaves it out. Please take it "
                     "out of the zip");
        addFolders(where.isFolder ? path + "/" : path);
        if (!where.isFolder && !m_files.try_emplace(path, name).second)
            complain(Weight::warning, name, "zip-entry-twice",
                     "another file before it has the same name, apart from letter case; the viewer takes the "
                     "last one only. Please take out the others");
    }

    static bool isUsersOwn(const std::string& path) {
        return base::holdsName(app::usersFiles(), base::withoutUnfinishedEnding(path));
    }

    void addFolders(const std::string& path) {
        for (auto end = path.find('/'); end != std::string::npos; end = path.find('/', end + 1))
            m_folders.insert(path.substr(0, end));
    }

    std::map<std::string, std::string> m_files; // names by path in upper case
    std::set<std::string> m_folders;            // upper case
    Complaints m_complaints;
};

}

Complaints checkEntries(const std::vector<ZipListing>& entries) {
    return EntryCheck().run(entries);
}

Complaint entryComplaint(Weight weight, std::string_view name, const char* rule, std::string text) {
    Complaint complaint;
    complaint.weight = weight;
    complaint.place.file = shownName(name);
    complaint.text = std::move(text);
    complaint.rule = rule;
    return complaint;
}

std::string shownName(std::string_view name) {
    constexpr std::size_t longest = 300;
    auto text = base::fromUtf8(name.substr(0, longest));
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; },
        '?');
    return base::shownAsUtf8(text) + (name.size() > longest ? "..." : "");
}

}
