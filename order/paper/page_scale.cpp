#include "order/paper/page_scale.h"

#include <qpdf/QPDFObjectHandle.hh>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace order {
namespace {

class ScaleReader final : public QPDFObjectHandle::ParserCallbacks {
public:
    void handleObject(QPDFObjectHandle object, std::size_t, std::size_t) override {
        if (!object.isOperator())
            m_operands.push_back(object);
        else
            take(object.getOperatorValue());
    }

    void handleEOF() override {}

    [[nodiscard]] double scale() const { return m_scale; }

private:
    void take(const std::string& name) {
        constexpr std::array beforePainting{"q", "re", "W", "W*", "n"};
        constexpr std::size_t operandsOfMatrix = 6;
        if (name == "cm" && m_operands.size() == operandsOfMatrix && m_operands.front().isNumber())
            m_scale *= m_operands.front().getNumericValue();
        else if (std::find(beforePainting.begin(), beforePainting.end(), name) == beforePainting.end())
            terminateParsing();
        m_operands.clear();
    }

    std::vector<QPDFObjectHandle> m_operands;
    double m_scale = 1;
};

}

double pageScale(QPDFObjectHandle page) {
    ScaleReader reader;
    page.parsePageContents(&reader);
    return reader.scale();
}

}
