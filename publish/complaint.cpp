#include "publish/complaint.h"

#include <algorithm>

namespace publish {

bool holdsError(const Complaints& complaints) {
    return std::any_of(complaints.begin(), complaints.end(),
                       [](const Complaint& c) { return c.weight == Complaint::Weight::error; });
}

std::string textOf(const Complaint& complaint) {
    auto text = complaint.file;
    if (complaint.line > 0)
        text += ":" + std::to_string(complaint.line);
    return text + (complaint.weight == Complaint::Weight::warning ? ": warning: " : ": error: ") +
           complaint.text;
}

}
