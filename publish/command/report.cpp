#include "publish/command/report.h"

#include "publish/complaint_json.h"

#include <algorithm>
#include <map>

namespace publish {
namespace {

using Weight = Complaint::Weight;

constexpr std::size_t toldOneByOne = 25;

bool isError(const Complaint& complaint) {
    return complaint.weight == Weight::error;
}

// Of each check and file the first ones; the rest is counted, so that the first cause is not lost in its
// effects.
void writeLines(const Complaints& complaints, std::ostream& out) {
    std::map<std::pair<std::string, std::string>, std::size_t> counts;
    for (const auto& complaint : complaints)
        if (++counts[{complaint.place.file, complaint.rule}] <= toldOneByOne)
            out << textOf(complaint) << '\n';
    for (const auto& [what, count] : counts)
        if (count > toldOneByOne)
            out << what.first << ": and " << counted(count - toldOneByOne, "place more", "places more")
                << " of the kind \"" << what.second << "\" (--format json names all)\n";
}

}

bool isToStop(const Complaints& complaints, const ReportForm& form) {
    return form.strict ? !complaints.empty() : holdsError(complaints);
}

void report(Complaints complaints, const ReportForm& form, std::ostream& out) {
    if (form.strict)
        for (auto& complaint : complaints)
            complaint.weight = Weight::error;
    std::stable_partition(complaints.begin(), complaints.end(), isError);
    if (form.json)
        out << complaintsAsJson(complaints) << '\n';
    else
        writeLines(complaints, out);
}

std::string counted(std::size_t count, const char* one, const char* many) {
    auto digits = std::to_string(count);
    for (std::size_t at = digits.size(); at > 3;) {
        at -= 3;
        digits.insert(at, ",");
    }
    return digits + " " + (count == 1 ? one : many);
}

}
