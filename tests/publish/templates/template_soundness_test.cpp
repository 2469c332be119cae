#include "tests/publish/templates/sample_catalog.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace {

/// Pieces of which templates are made, right ones and wrong ones.
constexpr std::array<std::string_view, 30> pieces{"{CODE}",
                                                  "{DESC}",
                                                  "{OTHER}",
                                                  "{{",
                                                  "}}",
                                                  " ",
                                                  "text",
                                                  "\n",
                                                  "{",
                                                  "}",
                                                  "{{ ",
                                                  " }}",
                                                  "{QTY}",
                                                  "<R1>",
                                                  "</R1>",
                                                  "<R2>",
                                                  "</R2>",
                                                  "{TOTINC}",
                                                  "<PH>",
                                                  "{NOCOLS=02}",
                                                  "{ROW=10}\n",
                                                  "{{ {OTHER} ",
                                                  "{CUR}",
                                                  "{LS}",
                                                  "{FAX}",
                                                  "{{ {CODE} }}",
                                                  "<R1>{QTY}{CODE}</R1>",
                                                  "<R2></R2>",
                                                  "{{ x {OTHER} }}",
                                                  "<!-- "};

std::string randomTemplate(std::mt19937& random) {
    std::string text;
    const auto length = random() % 12;
    for (unsigned i = 0; i < length; ++i)
        text += pieces.at(random() % pieces.size());
    return text;
}

TEST(TemplateSoundness, WhatPassesWithoutAnErrorEndsNoViewer) {
    const std::pair<const char*, std::vector<const char*>> templates[] = {
        {"Catalog.Ect", {"P1", "P2"}}, {"GroupI.Ect", {"TOOLS"}}, {"Banner.Ect", {"banner"}},
        {"Welcome.ECT", {"welcome"}},  {"PrtOrd.ect", {"order"}}, {"EmlOrd.ect", {"mail"}},
    };
    const SampleCatalog catalog;
    std::mt19937 random(20'261'123);
    int passed = 0;
    int ended = 0;
    for (int i = 0; i < 4'000; ++i) {
        const auto text = randomTemplate(random);
        const auto& [name, pages] = templates[random() % std::size(templates)];
        publish::Complaints complaints;
        publish::checkTemplate(name, text, publish::CatalogFiles({}), complaints);
        base::overwriteFile(catalog.folder / name, text);
        for (const auto* page : pages) {
            const bool ends = catalog.shown(page) == "ends";
            ASSERT_FALSE(ends && !publish::holdsError(complaints)) << name << ": " << text;
            ended += ends ? 1 : 0;
        }
        passed += publish::holdsError(complaints) ? 0 : 1;
    }
    EXPECT_GT(passed, 200);
    EXPECT_GT(ended, 200);
}

}
