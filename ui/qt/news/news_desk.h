#pragma once

#include "catalog/catalog.h"
#include "catalog/previous_catalog.h"
#include "ui/qt/news/news_window.h"
#include "ui/qt/widgets/guard.h"

#include <QObject>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace ui::qt {

/// What has changed with the last update of the catalogue: whether there is anything to be told, and the
/// window that tells it, which is made at its first use. The catalogues are compared on a thread of its own,
/// which has ended when the window is closed or the desk goes.
class NewsDesk final : public QObject {
    Q_OBJECT

public:
    /// All of it must outlive the desk.
    struct Surroundings {
        const catalog::Catalog& catalog;
        catalog::Folders folders;
        catalog::PreviousCatalog previous;
        Guard& guard;
        QWidget& window;                                        ///< over which the window lies
        std::function<std::vector<std::string>()> orderedCodes; ///< ever, in upper case
        std::function<void(std::int32_t record)> choose;        ///< shows an article in the catalogue
    };

    explicit NewsDesk(Surroundings surroundings);
    ~NewsDesk() override;

    /// Looks for a catalogue of before; until then there is none.
    void look();

    /// A catalogue of before is there to compare with.
    [[nodiscard]] bool available() const { return m_folder.has_value(); }

    /// It has changed and nobody has looked, or said that he need not: a few questions to the disk.
    [[nodiscard]] bool offered() const { return available() && m_around.previous.isUnseen(); }

    /// The day on which the catalogue of before had come, "12 March 2026"; empty where there is none.
    [[nodiscard]] QString since() const;

    void show();

    /// It is not offered again before the next update.
    void dismiss() { m_around.previous.markSeen(); }

    /// Closes the window, which remembers its place.
    void close();

private:
    void compare();
    void present(const std::string& page);
    void follow(const QUrl& address);

    /// Where the page is said to lie.
    [[nodiscard]] std::filesystem::path pageFolder() const;

    Surroundings m_around;
    std::optional<std::filesystem::path>
        m_folder; // of the catalogue of before; it stays while this one is open
    std::unique_ptr<NewsWindow> m_window;
    std::jthread m_comparison; // last, so that it has ended before anything goes
};

}
