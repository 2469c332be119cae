#include "publish/complaint.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>

namespace publish {

Complaint unusableFile(const std::string& file, const std::exception& error) {
    return {Complaint::Weight::error,
            {.file = file},
            base::toUtf8(base::replaceAll(error.what(), "\n", ". ")),
            "file-unreadable"};
}

bool holdsError(const Complaints& complaints) {
    return std::any_of(complaints.begin(), complaints.end(),
                       [](const Complaint& c) { return c.weight == Complaint::Weight::error; });
}

std::string textOf(const Place& place) {
    auto text = place.file;
    if (!place.sheet.empty())
        text += ", " + place.sheet;
    if (place.row > 0)
        text += (place.sheet.empty() ? ":" : ", row ") + std::to_string(place.row);
    return place.column.empty() ? text : text + ", " + place.column;
}

std::string textOf(const Complaint& complaint) {
    return textOf(complaint.place) +
           (complaint.weight == Complaint::Weight::warning ? ": warning: " : ": error: ") + complaint.text;
}

}
