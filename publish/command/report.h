#pragma once

#include "publish/complaint.h"

#include <ostream>

namespace publish {

/// How a command says what it found.
struct ReportForm {
    bool json = false;   ///< one JSON array instead of lines
    bool strict = false; ///< warnings count as errors
};

/// Whether the command is to stop: there is an error, or with `strict` anything.
[[nodiscard]] bool isToStop(const Complaints& complaints, const ReportForm& form);

/// Writes the complaints, errors first; as lines, of many alike only the first are told one by one.
void report(Complaints complaints, const ReportForm& form, std::ostream& out);

/// "1,204 products".
[[nodiscard]] std::string counted(std::size_t count, const char* one, const char* many);

}
