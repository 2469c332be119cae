#include "tables/xml_reader.h"

#include "base/errors.h"

#include <charconv>
#include <cstring>
#include <exception>
#include <expat.h>
#include <memory>
#include <type_traits>

namespace tables {
namespace {

std::string_view withoutPrefix(const char* name) {
    const std::string_view whole(name);
    return whole.substr(whole.find(':') + 1);
}

/// The parser is C, so what events throw waits until it has stopped.
class Run {
public:
    explicit Run(XmlEvents& events) : m_parser(XML_ParserCreate(nullptr), &XML_ParserFree), m_events(events) {
        XML_SetUserData(m_parser.get(), this);
        XML_SetElementHandler(m_parser.get(), &Run::start, &Run::end);
        XML_SetCharacterDataHandler(m_parser.get(), &Run::text);
        XML_SetDefaultHandlerExpand(m_parser.get(), &Run::other);
        XML_SetStartDoctypeDeclHandler(m_parser.get(), &Run::documentType);
    }

    void feed(std::string_view piece, bool isLast) {
        m_silent += piece.size();
        const auto status = XML_Parse(m_parser.get(), piece.data(), static_cast<int>(piece.size()), isLast);
        if (m_thrown)
            std::rethrow_exception(m_thrown);
        // A tag without end would be looked through again with every piece.
        if (status != XML_STATUS_OK || m_silent > longestTag)
            failSenseless();
    }

private:
    static constexpr std::size_t longestTag = std::size_t{1} << 20;

    [[noreturn]] static void failSenseless() {
        throw base::FileError("is damaged: a part of it makes no sense\nPlease save it again");
    }

    template <typename Handle>
    void handle(Handle event) {
        m_silent = 0;
        if (m_thrown)
            return;
        try {
            event(m_events);
        } catch (const std::exception&) {
            stop(std::current_exception());
        }
    }

    void stop(std::exception_ptr thrown) {
        m_thrown = std::move(thrown);
        XML_StopParser(m_parser.get(), XML_FALSE);
    }

    static void XMLCALL start(void* run, const XML_Char* name, const XML_Char** attributes) {
        static_cast<Run*>(run)->handle(
            [&](XmlEvents& events) { events.start(withoutPrefix(name), XmlAttributes(attributes)); });
    }

    static void XMLCALL end(void* run, const XML_Char* name) {
        static_cast<Run*>(run)->handle([&](XmlEvents& events) { events.end(withoutPrefix(name)); });
    }

    static void XMLCALL text(void* run, const XML_Char* text, int length) {
        static_cast<Run*>(run)->handle([&](XmlEvents& events) {
            events.text({text, static_cast<std::size_t>(length)});
        });
    }

    /// Comments and the like.
    static void XMLCALL other(void* run, const XML_Char*, int) { static_cast<Run*>(run)->m_silent = 0; }

    static void XMLCALL documentType(void* run, const XML_Char*, const XML_Char*, const XML_Char*, int) {
        static_cast<Run*>(run)->stop(std::make_exception_ptr(
            base::FileError("is no spreadsheet that can be read\nPlease save it again as .xlsx or .ods")));
    }

    std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> m_parser;
    XmlEvents& m_events;
    std::exception_ptr m_thrown;
    /// Bytes fed since the last event, counted in whole pieces.
    std::size_t m_silent = 0;
};

}

std::string_view XmlAttributes::value(std::string_view name) const {
    for (const char** pair = m_pairs; *pair != nullptr; pair += 2)
        if (std::strncmp(*pair, name.data(), name.size()) == 0 && (*pair)[name.size()] == '\0')
            return pair[1];
    return {};
}

std::size_t XmlAttributes::number(std::string_view name, std::size_t otherwise) const {
    constexpr std::size_t most = std::size_t{1} << 21;
    const auto text = value(name);
    std::size_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec == std::errc::result_out_of_range || number > most)
        return most;
    return text.empty() || read.ec != std::errc{} ? otherwise : number;
}

void readXml(const PackedFile& file, const std::string& part, XmlEvents& events) {
    Run run(events);
    file.read(part, [&](std::string_view piece) { run.feed(piece, false); });
    run.feed({}, true);
}

}
