#include "order/paper/joined_pdf.h"

namespace order {

class JoinedPdf::Document {};

bool canJoinPdfs() {
    return false;
}

JoinedPdf::JoinedPdf(Wanted) {}

JoinedPdf::~JoinedPdf() = default;

bool JoinedPdf::add(std::string_view, int, int) {
    return false;
}

int JoinedPdf::pages() const {
    return 0;
}

std::string JoinedPdf::bytes() {
    return {};
}

}
