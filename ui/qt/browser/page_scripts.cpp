#include "ui/qt/browser/page_scripts.h"

namespace ui::qt {
namespace {

constexpr auto missingPictures = R"JS(
(function () {
    var placeholder = "data:image/svg+xml," + encodeURIComponent(
        "<svg xmlns='http://www.w3.org/2000/svg' width='160' height='120' viewBox='0 0 160 120'>" +
        "<rect width='160' height='120' fill='#f3f4f5'/>" +
        "<g fill='none' stroke='#c3c8cc' stroke-width='3' stroke-linejoin='round'>" +
        "<rect x='48' y='32' width='64' height='56' rx='6'/>" +
        "<path d='M48 78 L70 56 L86 72 L96 62 L112 78'/><circle cx='92' cy='48' r='5'/></g></svg>");
    var failures = new WeakMap();
    var mostFailures = 3;

    window.addEventListener("error", function (event) {
        var picture = event.target;
        if (!(picture instanceof HTMLImageElement))
            return;
        var count = (failures.get(picture) || 0) + 1;
        failures.set(picture, count);
        if (count > mostFailures)
            event.stopImmediatePropagation();
        setTimeout(function () {
            if (count > mostFailures || (picture.complete && picture.naturalWidth === 0))
                picture.src = placeholder;
        }, 0);
    }, true);
})();
)JS";

// Documents that a page makes (blank, written, of data) inherit the rule, those of files get their own. The
// head comes with the first script at the latest, which waits until those who observe the document have been
// told.
constexpr auto noWorkers = R"JS(
(function () {
    function forbid() {
        if (!document.head)
            return false;
        var rule = document.createElement("meta");
        rule.httpEquiv = "Content-Security-Policy";
        rule.content = "worker-src 'none'";
        document.head.prepend(rule);
        rule.remove();
        return true;
    }
    if (!forbid())
        new MutationObserver(function (changes, observer) {
            if (forbid())
                observer.disconnect();
        }).observe(document, {childList: true, subtree: true});
})();
)JS";

// The root may not be there yet when the script runs.
constexpr auto darkDesktop = R"JS(
(function () {
    function mark() {
        if (document.documentElement)
            document.documentElement.dataset.desktop = "dark";
        return document.documentElement;
    }
    if (!mark())
        new MutationObserver(function (changes, observer) {
            if (mark())
                observer.disconnect();
        }).observe(document, {childList: true});
})();
)JS";

// A line break begins no page, whatever its style says; a block does.
constexpr auto pageBreaks = R"JS(
window.pageBreaks = Array.from(document.querySelectorAll("br[style*='page-break']"), function (mark) {
    var block = document.createElement("div");
    block.style.breakBefore = "page";
    mark.replaceWith(block);
    return block;
});
)JS";

QWebEngineScript scriptAtCreation(const QString& name, const QString& source) {
    QWebEngineScript script;
    script.setName(name);
    script.setSourceCode(source);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setRunsOnSubFrames(true);
    return script;
}

}

QWebEngineScript noWorkersScript() {
    return scriptAtCreation("no workers", noWorkers);
}

QWebEngineScript missingPictureScript() {
    return scriptAtCreation("missing pictures", missingPictures);
}

QWebEngineScript pageBreakScript() {
    QWebEngineScript script;
    script.setName("page breaks");
    script.setSourceCode(pageBreaks);
    script.setInjectionPoint(QWebEngineScript::DocumentReady);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    return script;
}

QWebEngineScript darkDesktopScript() {
    return scriptAtCreation("dark desktop", darkDesktop);
}

}
