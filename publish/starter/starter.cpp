#include "publish/starter/starter.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "publish/file_names.h"
#include "publish/lists/product_list.h"
#include "publish/starter/starter_files.h"

#include <array>

namespace publish {
namespace fs = std::filesystem;

namespace {

std::string_view textOf(const StarterFile& file) {
    return {reinterpret_cast<const char*>(file.bytes.data()), file.bytes.size()};
}

/// A folder that grows under another name and gets its own when it is complete.
class NewFolder {
public:
    explicit NewFolder(const fs::path& place) : m_place(place), m_path(fs::path(place).concat(".new")) {
        std::error_code error;
        if (fs::exists(place, error) && !fs::is_empty(place, error))
            fail("is not empty; name a new one");
        fs::remove_all(m_path, error);
        if (!fs::create_directories(m_path, error))
            fail("cannot be made; look whether you may write there, and whether there is room");
    }

    ~NewFolder() {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }

    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    [[nodiscard]] const fs::path& path() const { return m_path; }

    void finish() {
        std::error_code error;
        fs::remove(m_place, error); // empty, if it is there
        fs::rename(m_path, m_place, error);
        if (error)
            fail("cannot be made; look whether you may write there");
    }

private:
    [[noreturn]] void fail(const char* why) const {
        throw base::FileError("The folder " + base::textOf(m_place) + " " + why + ".");
    }

    fs::path m_place;
    fs::path m_path;
};

// Writes the value behind the key's "=".
void setValue(std::string& parameters, std::string_view key, std::string_view value) {
    const auto start = ("\n" + parameters).find("\n" + std::string(key) + " =");
    if (start == std::string::npos || value.empty())
        return;
    const auto from = start + key.size() + 2;
    parameters.replace(from, parameters.find('\n', from) - from, " " + std::string(value));
}

// A heading as the viewer can show it: one line, not longer than the field.
std::string caption(std::string_view heading) {
    constexpr std::size_t most = 40;
    auto text = base::fromUtf8(heading.substr(0, heading.find('\n')));
    return text.size() > most ? std::string() : base::toUtf8(text);
}

struct CaptionKey {
    ListField field;
    const char* key;
};

constexpr std::array captionKeys{
    CaptionKey{ListField::code, "Code caption"}, CaptionKey{ListField::description, "Description caption"},
    CaptionKey{ListField::price, "Price caption"}, CaptionKey{ListField::other, "Extra caption"}};

bool isColumn(const MappingValue& value) {
    return !value.text.empty() && value.text != "none";
}

void takeFromList(std::string& parameters, const ListMapping& mapping) {
    for (const auto& [field, key] : captionKeys)
        if (isColumn(mapping.column(field)))
            setValue(parameters, key, caption(mapping.column(field).text));
    if (!isColumn(mapping.column(ListField::tax))) {
        setValue(parameters, "Charge tax", "no");
        setValue(parameters, "Tax name", " ");
    }
}

std::string parametersFor(std::string_view starter, const Beginning& beginning, const ListMapping* mapping) {
    std::string parameters(starter);
    setValue(parameters, "Supplier name", beginning.supplierName);
    setValue(parameters, "E-mail", beginning.email);
    if (mapping != nullptr)
        takeFromList(parameters, *mapping);
    else
        setValue(parameters, "Extra caption", "Pack");
    return parameters;
}

// The tables of the example are left out where there is a list.
void writeFiles(const fs::path& folder, const Beginning& beginning, const ListMapping* mapping) {
    for (const auto& file : starterFiles())
        if (file.name == parametersSource)
            base::overwriteFile(folder / file.name, parametersFor(textOf(file), beginning, mapping));
        else if (mapping == nullptr || (file.name != productsSource && file.name != groupsSource))
            base::overwriteFile(folder / file.name, textOf(file));
}

void copyList(const fs::path& list, const fs::path& folder) {
    std::error_code error;
    fs::copy_file(list, folder / list.filename(), error);
    if (error)
        throw base::FileError("The list " + base::textOf(list) +
                              " cannot be copied; look whether you may read it, and whether there is room.");
}

}

std::string makeSourceFolder(const fs::path& folder, const Beginning& beginning, Complaints& complaints) {
    NewFolder made(folder);
    std::string summary;
    if (beginning.list.empty()) {
        writeFiles(made.path(), beginning, nullptr);
    } else {
        copyList(beginning.list, made.path());
        const auto name = utf8Of(beginning.list.filename());
        const ProductList list(made.path() / beginning.list.filename(), name, {}, complaints);
        if (holdsError(complaints))
            return {};
        auto mapping = list.mapping();
        mapping.file.text = name;
        base::overwriteFile(made.path() / mappingFileName, publish::textOf(mapping));
        writeFiles(made.path(), beginning, &mapping);
        summary = list.summary();
    }
    made.finish();
    return summary;
}

}
