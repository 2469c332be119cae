#pragma once

#include <QWebEngineScript>

namespace ui::qt {

/// Puts a quiet placeholder where a picture is missing, after the page's own error handling has had its
/// turn, and stops a page that swaps missing pictures for missing pictures without end. Runs in a world
/// of its own, out of the page's reach.
[[nodiscard]] QWebEngineScript missingPictureScript();

/// Takes workers away from pages, their frames and what these make: newer browsers ask no filter for what a
/// worker reads. Holds in HTML documents, before their first script.
[[nodiscard]] QWebEngineScript noWorkersScript();

/// Marks a page's root with the attribute data-desktop="dark", which a page may go by or not: a page that
/// does not ask keeps its own colours.
[[nodiscard]] QWebEngineScript darkDesktopScript();

/// Makes the mark that order pages carry, a line break with a "page-break" style, begin a new page on
/// paper, which the browser alone passes over. What has taken their place is `window.pageBreaks` then, in
/// the scripts' own world.
[[nodiscard]] QWebEngineScript pageBreakScript();

}
