#pragma once

#include <QString>
#include <QWebEngineView>

#include <filesystem>
#include <map>
#include <memory>
#include <optional>

namespace tour {

/// The texts of all pages on the screen. A page tells its text late.
class PageTexts {
public:
    /// Asks every page that is to be seen now.
    void ask();

    /// Every page has answered.
    [[nodiscard]] bool areThere() const;

    [[nodiscard]] QString of(const QWebEngineView& view) const;

private:
    using Texts = std::map<const QWebEngineView*, std::optional<QString>>;

    std::shared_ptr<Texts> m_texts = std::make_shared<Texts>();
};

/// What a person reads in all windows, line by line: titles, controls with their texts and underlined
/// letters, which of them are greyed or ticked, the first rows of grids, pages. Nothing of places, sizes,
/// fonts and colours, so that it is the same on every machine.
[[nodiscard]] QString describeScreen(const PageTexts& pages);

void writeDescription(const std::filesystem::path& file, const QString& description);

}
