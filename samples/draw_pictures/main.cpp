#include "base/code_page.h"
#include "publish/product_rows.h"
#include "publish/source/source_folder.h"
#include "samples/draw_pictures/house.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include <cstdio>

namespace {

using drawing::House;

constexpr int pictureQuality = 88;

QString textOf(const std::string& text) {
    return QString::fromStdString(base::toUtf8(text));
}

/// Draws the pictures of a catalogue into a folder, under the names by which the catalogue asks for them.
class Pictures {
public:
    Pictures(const House& house, const publish::ProductRows& products, const QString& folder)
        : m_house(house), m_products(products), m_folder(folder) {}

    /// Returns the products that stand for the group on pictures of groups.
    std::vector<drawing::Drawer> drawGroup(const publish::Group& group) {
        std::vector<std::vector<drawing::Drawer>> offered;
        for (const auto& child : group.groups)
            offered.push_back(drawGroup(child));
        for (std::size_t i = 0; i < group.rows.size(); ++i) {
            publish::Product product;
            publish::Complaints ignored; // reported by tavorine-publish, which reads the same list
            m_products.read(group.rows[i], product, ignored);
            const auto drawer = drawProduct(group, product);
            if (drawer && i == group.rows.size() / 2)
                offered = {{drawer}};
        }
        auto shown = inTurn(offered);
        if (!shown.empty())
            save(drawing::photograph(drawing::together(shown, m_house.posture), m_house.backdrop),
                 group.header);
        return shown;
    }

    void save(const QImage& picture, const QString& name) {
        const auto path = m_folder.filePath(name);
        if (!m_folder.mkpath(QFileInfo(name).path()) || !picture.save(path, "JPEG", pictureQuality)) {
            std::fprintf(stderr, "Cannot write %s\n", qUtf8Printable(path));
            m_failed = true;
        }
    }

    [[nodiscard]] bool failed() const { return m_failed; }

private:
    // The first of each, then the second of each, until there are enough.
    static std::vector<drawing::Drawer> inTurn(const std::vector<std::vector<drawing::Drawer>>& offered) {
        constexpr std::size_t enough = 6;
        std::vector<drawing::Drawer> chosen;
        for (std::size_t round = 0; round < enough; ++round)
            for (const auto& drawers : offered)
                if (round < drawers.size() && chosen.size() < std::max<std::size_t>(4, offered.size()) &&
                    chosen.size() < enough)
                    chosen.push_back(drawers[round]);
        return chosen;
    }

    drawing::Drawer drawProduct(const publish::Group& group, const publish::Product& product) {
        auto drawer = m_house.drawerFor(
            {textOf(group.name), textOf(product.code), textOf(product.description), textOf(product.other)});
        if (drawer) {
            save(drawing::photograph(drawer, m_house.backdrop), product);
        } else {
            std::fprintf(stderr, "No picture is known for %s\n", product.code.c_str());
            m_failed = true;
        }
        return drawer;
    }

    void save(const QImage& picture, const publish::Product& entry) {
        save(picture, entry.picture.empty() ? textOf(entry.code) + ".Jpg" : textOf(entry.picture));
    }

    const House& m_house;
    const publish::ProductRows& m_products;
    QDir m_folder;
    bool m_failed = false;
};

publish::CatalogSource readSource(const QString& folder) {
    publish::Complaints ignored;
    return publish::readSourceFolder(folder.toStdU16String(), {}, ignored).catalog;
}

}

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const auto arguments = QGuiApplication::arguments();
    const auto house = arguments.size() == 3 ? drawing::houseOf(QDir(arguments[1]).dirName()) : std::nullopt;
    if (!house) {
        std::fputs("draw_pictures SOURCE FOLDER: draws the pictures of a sample catalogue\n", stderr);
        return 2;
    }
    const auto source = readSource(arguments[1]);
    Pictures pictures(*house, *source.products, arguments[2]);
    (void)pictures.drawGroup(source.contents);
    pictures.save(house->logo(), "logo.jpg");
    pictures.save(drawing::noPicture(house->backdrop), "NoImg.jpg");
    return pictures.failed() ? 1 : 0;
}
