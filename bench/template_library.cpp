#include "bench/template_library.h"

#include "base/text.h"

namespace bench {

std::string inTheirNames(std::string text, std::span<const Tag> tags) {
    for (const auto& tag : tags)
        text = base::replaceAll(text, tag.ours, "{{" + std::string(tag.theirs) + "}}");
    return text;
}

std::vector<unsigned> numbersOf(std::span<const Tag> tags, const pages::Fields& fields) {
    std::vector<unsigned> numbers;
    for (const auto& tag : tags)
        numbers.push_back(fields.number(tag.ours));
    return numbers;
}

void fillTags(ctemplate::TemplateDictionary& dictionary, std::span<const Tag> tags,
              std::span<const unsigned> numbers, const pages::Fields& fields, std::string& buffer) {
    for (std::size_t i = 0; i < tags.size(); ++i) {
        buffer.clear();
        fields.append(numbers[i], buffer);
        dictionary.SetValue(tags[i].theirs, buffer);
    }
}

void expand(const char* name, const ctemplate::TemplateDictionary& dictionary, std::string& out) {
    out.clear();
    ctemplate::ExpandTemplate(name, ctemplate::DO_NOT_STRIP, &dictionary, &out);
}

}
