"""What is measured: how the programs run, what the table says, what is plotted. A new benchmark is one line here.

Only what a row or a plot names is run. A benchmark is named without what the library appends ("/real_time")."""

from dataclasses import dataclass

SIZES = (1_000, 100_000, 999_999)


@dataclass(frozen=True)
class Run:
    """A program of the build folder's bench/. Behind "@" the number of processors that it gets, if not all."""
    program: str
    repetitions: int = 9
    seconds: float = 0.1  # for one repetition, without setting up
    display: bool = False


@dataclass(frozen=True)
class Row:
    work: str
    program: str
    ours: str
    peer: str = ""     # another benchmark of the program
    peer_is: str = ""  # what it stands for
    target: str = ""   # at most: "0.8 x" the peer, or "50 ms", "64 MB", "3 calls"
    by: str = "processor"  # or "clock", or a counter whose name ends in its unit: "frozen_ms", "memory_mb", "calls"


@dataclass(frozen=True)
class Line:
    label: str
    program: str
    benchmark: str  # with {} for the number of records
    by: str = "processor"


@dataclass(frozen=True)
class Plot:
    file: str
    title: str
    lines: tuple
    sizes: tuple = SIZES
    counted: str = "records"


RUNS = (
    Run("catalog_bench", repetitions=7),
    Run("search_bench"),
    Run("page_rendering_bench"),
    Run("ordering_bench", repetitions=5),
    Run("kept_orders_bench", repetitions=5),
    Run("news_bench", repetitions=3),
    Run("order_writer_bench"),
    Run("order_list_bench", repetitions=3),
    Run("product_list_bench", repetitions=3),
    Run("publish_bench", repetitions=3),
    Run("publish_bench@1", repetitions=3),
    Run("install_bench", repetitions=3, display=True),
    Run("start_bench", repetitions=3, display=True),
    Run("main_window_bench", repetitions=3, display=True),
    Run("group_list_bench", repetitions=3, display=True),
    Run("browsing_bench", repetitions=3, display=True),
    Run("orders_window_bench", repetitions=3, display=True),
    Run("printing_bench", repetitions=2, display=True),
)

ROWS = (
    Row("open a catalogue of 1,000 records, to 40 rows", "catalog_bench",
        "openCatalogAndReadRows/1000", "openDatabaseAndReadRows/1000", "SQLite", "1.0 x"),
    Row("open a catalogue of 999,999 records, to 40 rows", "catalog_bench",
        "openCatalogAndReadRows/999999", "openDatabaseAndReadRows/999999", "SQLite", "1.0 x"),
    Row("the same, nothing of its files in memory", "catalog_bench",
        "openCatalogFromDisk/999999", "openDatabaseFromDisk/999999", "SQLite", "1.0 x", by="clock"),
    Row("the same, memory asked for", "catalog_bench",
        "openCatalogAndReadRows/999999", "openCatalogAndReadRows/1000", "1,000 records", "1.01 x", by="heap_bytes"),
    Row("look a code up among 999,999", "catalog_bench",
        "findCode/999999", "findCodeInStore/999999", "LMDB", "0.8 x"),
    Row("go through 999,999 records from the disk", "catalog_bench",
        "readAllFromDisk/1", "readAllFromDisk/0", "without reading ahead", by="clock"),

    Row("search for `zq`, in none of 999,999 records", "search_bench",
        "search/0/999999", "hyperscan/0/999999", "Hyperscan", "1.5 x"),
    Row("search for `P9999999`, which every code resembles", "search_bench",
        "search/2/999999", "hyperscan/2/999999", "Hyperscan", "1.5 x"),
    Row("search for `Hexagon bolt M41`, as every text begins", "search_bench",
        "search/3/999999", "hyperscan/3/999999", "Hyperscan", "1.5 x"),
    Row("search for `Octagon bolt`, as every text ends", "search_bench",
        "search/4/999999", "hyperscan/4/999999", "Hyperscan", "1.5 x"),
    Row("search for `zq` upwards", "search_bench",
        "searchUpwards/0", "hyperscan/0/999999", "Hyperscan", "1.5 x"),
    Row("first search of a session, file in memory", "search_bench", "firstSearch", target="60 ms"),
    Row("search where every record has the phrase elsewhere", "search_bench",
        "searchInTheOtherColumn", target="15 ms"),

    Row("product page, 5.6 KB", "page_rendering_bench",
        "tavorine/product_page", "ctemplateWhole/product_page", "ctemplate", "0.5 x"),
    Row("group page, 50 entries, 11 KB", "page_rendering_bench",
        "tavorine/group_page", "ctemplateWhole/group_page", "ctemplate", "0.6 x"),
    Row("product page of any of 999,999 records", "page_rendering_bench",
        "pageAmong/999999", "ctemplateAmong/999999", "ctemplate", "0.5 x"),
    Row("product page, filling in alone", "page_rendering_bench",
        "tavorineExpansion/product_page", "ctemplateExpansion/product_page", "ctemplate", "0.5 x"),
    Row("product page whose values have braces", "page_rendering_bench", "plainExpansion/product_page"),

    Row("type a quantity into an order of 10 lines", "ordering_bench",
        "typeQuantity/10", "updateRow/10", "SQLite", "0.1 x"),
    Row("type a quantity into an order of 100,000 lines", "ordering_bench",
        "typeQuantity/100000", "updateRow/100000", "SQLite", "0.1 x"),
    Row("type a quantity into an order of 999,999 lines", "ordering_bench",
        "typeQuantity/999999", "updateRow/999999", "SQLite", "0.1 x"),
    Row("the basket's part of it, heard by the journal", "ordering_bench",
        "updateKeptLine/999999", "updateLine/999999", "nobody hears it", "1.1 x"),
    Row("price an order of 100,000 lines again", "ordering_bench",
        "recalculate/100000", "updateAllRows/100000", "SQLite", "0.1 x"),
    Row("take a list of 100,000 lines into an order", "ordering_bench", "takeList/100000"),

    Row("list 10,000 kept orders", "kept_orders_bench", "listOrders/all", by="clock"),
    Row("search them for a code", "kept_orders_bench", "searchOrders/code", by="clock"),
    Row("search them for a word of all", "kept_orders_bench", "searchOrders/oneLetter", by="clock"),
    Row("keep one more order, onto the disk", "kept_orders_bench", "addOrder", by="clock"),
    Row("the window of kept orders, to its first paint", "orders_window_bench", "openWindow", by="clock"),
    Row("a search in it, to the painted list", "orders_window_bench", "search/AB-123", by="clock"),
    Row("news of two catalogues of 999,999, codes in order", "news_bench", "tellNews/10/0"),
    Row("news of two catalogues of 999,999, codes in none", "news_bench", "tellNews/10/1"),
    Row("read a list of 100,000 lines, .csv", "order_list_bench", "readCsv/100000", by="clock"),
    Row("read a list of 100,000 lines, .xlsx", "order_list_bench", "readXlsx/100000", by="clock"),

    Row("order to print, 10,000 lines, 1.9 MB", "order_writer_bench",
        "tavorine/page/10000", "ctemplateWhole/page/10000", "ctemplate", "0.3 x"),
    Row("order to send, 10,000 lines, 1.8 MB", "order_writer_bench",
        "tavorine/mail/10000", "ctemplateWhole/mail/10000", "ctemplate", "0.3 x"),
    Row("order to print, 20,000 lines", "order_writer_bench",
        "tavorine/page/20000", "tavorine/page/10000", "10,000 lines", "2.2 x"),
    Row("PDF of 1,000 lines, the program's share", "printing_bench",
        "program/1000", "pdf/1000/browser", "the browser's own", "0.02 x", by="clock"),
    Row("PDF of 1,000 lines", "printing_bench",
        "pdf/1000", "pdf/1000/browser", "the browser's own", "1.0 x", by="clock"),
    Row("PDF of 10,000 lines", "printing_bench",
        "pdf/10000", "pdf/10000/browser", "the browser's own", "1.0 x", by="clock"),
    Row("the same, memory of all processes", "printing_bench", "pdf/10000", target="700 MB", by="memory_mb"),
    Row("the same, longest freeze", "printing_bench", "pdf/10000", by="frozen_ms"),

    Row("start of the process to the first paint", "start_bench",
        "start/firstPaint", "start/firstPaint/peer", "bare window", "1.0 x", by="clock"),
    Row("start to the last big paint of the suppliers", "start_bench",
        "start/suppliers", "start/suppliers/peer", "skeleton", "1.0 x", by="clock"),
    Row("open the main window, 999,999 records", "main_window_bench",
        "openWindow/999999", "openWindow/1000", "1,000 records", "1.1 x", by="clock"),
    Row("Ctrl+A on 999,999 rows, longest freeze", "main_window_bench",
        "selectAll/999999", "selectAll/999999/peer", "bare grid", "20 ms", by="frozen_ms"),
    Row("Ctrl+C of 999,999 rows, longest freeze", "main_window_bench", "copyAll/999999", by="frozen_ms"),
    Row("the text of 999,999 copied rows", "main_window_bench",
        "pasteAll/999999", "pasteAll/999999/peer", "without a window", "1 s", by="clock"),
    Row("search to the painted last of 999,999 rows", "main_window_bench", "searchAll/999999", by="clock"),
    Row("check-out to the painted order, 10,000 lines", "main_window_bench", "checkOut/10000", by="clock"),
    Row("group list of 20,000 entries, click to list", "group_list_bench",
        "groupList/20000", "groupList/20000/peer", "bare list", "50 ms", by="clock"),
    Row("row change to the loaded page", "browsing_bench",
        "rowChange", "rowChange/peer", "bare load", "1.0 x", by="clock"),
    Row("a page, 30 keys a second being held", "browsing_bench",
        "heldKey/30", "heldKey/30/peer", "bare view", "1.01 x", by="clock"),
    Row("a page, 200 keys a second being held", "browsing_bench",
        "heldKey/200", "heldKey/200/peer", "bare view", "1.0 x", by="clock"),

    Row("install a zip of 203 MB with 5,000 pictures, one core", "install_bench",
        "install/5000 pictures, one core", "install/5000 pictures, one core/bsdtar", "bsdtar", "1.0 x", by="clock"),
    Row("the same, two cores", "install_bench",
        "install/5000 pictures, two cores", "install/5000 pictures, two cores/bsdtar", "bsdtar", "0.7 x", by="clock"),
    Row("the same, memory", "install_bench", "install/5000 pictures, two cores", target="64 MB", by="memory_mb"),
    Row("the same, longest freeze", "install_bench",
        "install/5000 pictures, in the window", target="50 ms", by="frozen_ms"),
    Row("update with a higher version, one core", "install_bench",
        "update/5000 pictures, one core", "update/5000 pictures, one core/bsdtar", "bsdtar", "1.0 x", by="clock"),
    Row("the same, two cores", "install_bench",
        "update/5000 pictures, two cores", "update/5000 pictures, two cores/bsdtar", "bsdtar", "1.0 x", by="clock"),
    Row("the same, longest freeze", "install_bench",
        "update/5000 pictures, in the window", target="50 ms", by="frozen_ms"),
    Row("update of an unchanged catalogue", "install_bench",
        "update unchanged/5000 pictures, two cores", "update/5000 pictures, two cores", "a first update", "0.3 x",
        by="clock"),

    Row(".xlsx of 100,000 products, into tables", "product_list_bench",
        "tablesFromXlsx", "xlsxWithLibraryAlone", "liborcus", by="clock"),
    Row("catalogue of 100,000 products from .csv, checked", "publish_bench", "writeDataFiles/100000", by="clock"),
    Row("publish 100,000 products, one core", "publish_bench@1",
        "publishWhole/100000", "publishWholeByProgram/100000", "zip -6", "1.1 x", by="clock"),
    Row("publish 100,000 products, two cores", "publish_bench",
        "publishWhole/100000", "publishWholeByProgram/100000", "zip -6", "0.7 x", by="clock"),
    Row("publish 990,000 products, two cores", "publish_bench",
        "publishWhole/990000", "publishWholeByProgram/990000", "zip -6", "0.7 x", by="clock"),
    Row("the same, memory of its own", "publish_bench", "publishWhole/990000", target="300 MB", by="memory_mb"),
    Row("zip of 69 MB, one core", "publish_bench@1",
        "writeZip/1", "writeZipByProgram", "zip -6", "1.1 x", by="clock"),
    Row("zip of 69 MB, two cores", "publish_bench",
        "writeZip/2", "writeZipByProgram", "zip -6", "0.7 x", by="clock"),
)

PLOTS = (
    Plot("opening", "Opening a catalogue, to 40 readable rows",
         (Line("Tavorine", "catalog_bench", "openCatalogAndReadRows/{}"),
          Line("SQLite", "catalog_bench", "openDatabaseAndReadRows/{}"))),
    Plot("opening-from-disk", "Opening it, nothing of its files in memory",
         (Line("Tavorine", "catalog_bench", "openCatalogFromDisk/{}", by="clock"),
          Line("SQLite", "catalog_bench", "openDatabaseFromDisk/{}", by="clock"))),
    Plot("memory", "Memory asked for in opening",
         (Line("Tavorine", "catalog_bench", "openCatalogAndReadRows/{}", by="heap_bytes"),)),
    Plot("look-up", "Looking up one code",
         (Line("Tavorine", "catalog_bench", "findCode/{}"),
          Line("LMDB", "catalog_bench", "findCodeInStore/{}"))),
    Plot("page", "One product's page",
         (Line("Tavorine", "page_rendering_bench", "pageAmong/{}"),
          Line("ctemplate", "page_rendering_bench", "ctemplateAmong/{}"))),
    Plot("quantity", "Typing a quantity, every product ordered",
         (Line("Tavorine", "ordering_bench", "typeQuantity/{}"),
          Line("SQLite", "ordering_bench", "updateRow/{}"))),
    Plot("search", "Searching all records in vain",
         (Line("Tavorine", "search_bench", "search/0/{}"),
          Line("Hyperscan", "search_bench", "hyperscan/0/{}"))),
    Plot("order", "An order's page to print",
         (Line("Tavorine", "order_writer_bench", "tavorine/page/{}"),
          Line("ctemplate", "order_writer_bench", "ctemplateWhole/page/{}")),
         sizes=(1_000, 10_000, 100_000), counted="lines"),
    Plot("publishing", "Publishing, beside packing alone",
         (Line("Tavorine", "publish_bench", "publishWhole/{}", by="clock"),
          Line("zip -6", "publish_bench", "publishWholeByProgram/{}", by="clock")),
         sizes=(1_000, 100_000, 990_000), counted="products"),
    Plot("window", "Opening the main window",
         (Line("Tavorine", "main_window_bench", "openWindow/{}", by="clock"),)),
)
