#pragma once

#include <array>
#include <string_view>

namespace ui {

/// What the help says about a control.
struct HelpTopic {
    std::string_view control; ///< its object name
    std::string_view target;  ///< page of the help book, with an anchor
    std::string_view whatsThis;
};

inline constexpr std::array helpTopics{
    // the start-up window
    HelpTopic{"Welcome", "suppliers.html#list", "Choose a supplier here, and open its catalogue."},
    HelpTopic{"WebBrowser1", "suppliers.html#list",
              "Your suppliers, or the welcome page of the one you have chosen. Click a supplier to open its "
              "catalogue."},
    HelpTopic{"txtPassword", "suppliers.html#password",
              "The password that your supplier has told you. Leave it empty if there is none."},
    HelpTopic{"txtConfirm", "suppliers.html#own-password",
              "Type the new password once more, so that no slip of the finger locks the catalogue."},
    HelpTopic{"cbNext(0)", "suppliers.html#password", "Opens the catalogue."},
    HelpTopic{"cbNext(1)", "suppliers.html#own-password",
              "Sets the password that you have typed twice, and opens the catalogue. It is asked for from "
              "now on."},
    HelpTopic{"cbSuppliers", "suppliers.html#list", "Goes back to the list of your suppliers."},

    // the commands
    HelpTopic{"Form1", "finding.html#list", "The catalogue: look for articles and order them."},
    HelpTopic{"Toolbar1", "keys.html#main-window", "The commands of the main window."},
    HelpTopic{"Exit", "keeping.html#leaving",
              "Saves your delivery details and leaves Tavorine. The order itself is not kept."},
    HelpTopic{"Search", "search.html#window", "Opens a window in which you search the list of articles."},
    HelpTopic{"Back", "finding.html#back", "Goes back to the page that was shown before."},
    HelpTopic{"Plist", "order-view.html#going", "Leads from the order back to the catalogue."},
    HelpTopic{"CheckOut", "order-view.html#going",
              "Shows what you have ordered and where it is to go. It can be pressed once something is "
              "ordered."},
    HelpTopic{"Print", "printing.html#print", "Prints the order, on paper or into a PDF file."},
    HelpTopic{"Preview", "printing.html#preview", "Shows the pages of the order before they are printed."},
    HelpTopic{"PrintPreview", "printing.html#preview", "The pages of the order, as they will be printed."},
    HelpTopic{"Pages", "printing.html#preview", "The pages of the order, as they will be printed."},
    HelpTopic{"Email", "email.html#send", "Sends the order to your supplier by e-mail."},
    HelpTopic{"Clear", "ordering.html#clear", "Takes everything off the order, after a question."},
    HelpTopic{"Help", "index.html#using", "Opens the help book."},

    HelpTopic{
        "More", "keys.html#more",
        "What else can be done: orders that left, quick entry, lists of articles, addresses, the page's "
        "size."},
    HelpTopic{"OfferBar", "reordering.html#unfinished", "Something that Tavorine can do for you."},
    HelpTopic{"OfferClose", "reordering.html#unfinished", "Closes this line."},
    HelpTopic{"OfferContinue", "reordering.html#unfinished",
              "Puts the articles of the unfinished order on this one, at today's prices."},
    HelpTopic{"OfferLater", "reordering.html#unfinished",
              "Keeps the unfinished order. It is not offered by itself any more."},
    HelpTopic{"OfferDelete", "reordering.html#unfinished",
              "Deletes the unfinished order. Until this line is closed that can be undone."},
    HelpTopic{"OfferUndo", "reordering.html#unfinished", "Brings the unfinished order back."},

    // quick entry
    HelpTopic{"QuickEntry", "reordering.html#quick-entry", "A line for codes and quantities."},
    HelpTopic{"txQuickCode", "reordering.html#quick-entry",
              "The code of an article, or words of its description. Enter goes on to the quantity."},
    HelpTopic{"txQuickQuantity", "reordering.html#quick-entry",
              "How many you want; one, if you leave it empty. Enter orders them."},
    HelpTopic{"cbQuickScanner", "reordering.html#scanner",
              "Tick this for a slow barcode scanner: Enter after a code orders one at once."},
    HelpTopic{"QuickClose", "reordering.html#quick-entry", "Closes quick entry."},
    HelpTopic{"Suggestions", "reordering.html#quick-entry",
              "Articles that it may be. Down and Up choose one."},

    // lines that come from elsewhere
    HelpTopic{"Intake", "reordering.html#look-first", "What would come of these lines if they were ordered."},
    HelpTopic{"IntakeRefused", "reordering.html#look-first", "Lines that cannot be ordered, and why."},
    HelpTopic{"IntakePrices", "reordering.html#look-first", "Articles that have another price now."},
    HelpTopic{"IntakeOverlap", "reordering.html#look-first",
              "What becomes of articles that are on the order already."},
    HelpTopic{"IntakeOrder", "reordering.html#look-first", "Puts these lines on the order."},
    HelpTopic{"IntakeCancel", "reordering.html#look-first", "Leaves the order as it is."},

    // the catalogue view
    HelpTopic{"wbBanner", "finding.html#banner", "Your supplier's banner."},
    HelpTopic{"GDB(0)", "finding.html#groups",
              "The groups of the catalogue. Choose one, then go on in the next box to the right."},
    HelpTopic{"GDB(1)", "finding.html#groups", "What is in the group chosen in the first box."},
    HelpTopic{"GDB(2)", "finding.html#groups", "What is in the group chosen in the second box."},
    HelpTopic{"GDB(3)", "finding.html#groups", "What is in the group chosen in the third box."},
    HelpTopic{"ctGrid1", "ordering.html#quantities",
              "The whole catalogue, one article a row. Type a quantity to order the marked article; its "
              "page is shown below."},
    HelpTopic{"quantity", "ordering.html#quantities",
              "How many you want. Enter takes it, Esc leaves the old quantity, 0 takes the article off the "
              "order."},
    HelpTopic{"Split", "finding.html#list", "Drag this line to give the list or the page more room."},
    HelpTopic{"WbPage", "finding.html#page",
              "The page of the marked article. Articles and groups that it mentions can be clicked."},
    HelpTopic{"PageSearch", "finding.html#on-page", "Finds a word on the page that is up."},
    HelpTopic{"txtPageSearch", "finding.html#on-page",
              "The word to find on the page that is up. Enter goes on to the next place."},

    // lists
    HelpTopic{
        "OpenList", "lists.html#in",
        "Choose a spreadsheet or a text with codes and quantities. You see what would come of it before "
        "anything is ordered."},
    HelpTopic{"SaveOrder", "lists.html#out",
              "Choose a name for the order's lines: .xlsx makes a spreadsheet of them, .csv a text."},

    // the order view
    HelpTopic{"ctGrid2", "order-view.html#order", "What you have ordered. Quantities can be changed here."},
    HelpTopic{"Details", "order-view.html#details", "Who you are, and where the order is to go."},
    HelpTopic{"txOrgName", "order-view.html#details", "The name of your business. An order needs it."},
    HelpTopic{"txAtten", "order-view.html#details", "Your name, or whoever the delivery is for."},
    HelpTopic{"txStreet", "order-view.html#details", "The street to which the order is delivered."},
    HelpTopic{"txCity", "order-view.html#details", "The city or suburb to which the order is delivered."},
    HelpTopic{"txState", "order-view.html#details", "The state to which the order is delivered."},
    HelpTopic{"txZip", "order-view.html#details", "The zip code of the delivery address."},
    HelpTopic{"txCountry", "order-view.html#details", "The country to which the order is delivered."},
    HelpTopic{"txPhone", "order-view.html#details",
              "Where your supplier can call you about the order. An order needs it."},
    HelpTopic{"txOrdNo", "order-view.html#order-number",
              "Your own number or reference for this order, if you use one."},
    HelpTopic{"txDel(0)", "order-view.html#date",
              "The day on which you want the delivery, with two digits. Leave it empty if any day will do."},
    HelpTopic{"txDel(1)", "order-view.html#date", "The month of the delivery, with two digits."},
    HelpTopic{"txDel(2)", "order-view.html#date", "The year of the delivery, with two digits."},
    HelpTopic{"txComment", "order-view.html#comments",
              "Anything your supplier should know about this order. Ctrl+Enter starts a new line."},

    // the bar at the bottom
    HelpTopic{"cbTax", "ordering.html#exempt",
              "Tick this if you pay no tax. The whole order is priced again."},
    HelpTopic{"lbTotTax", "ordering.html#totals", "How much of the total is tax."},
    HelpTopic{"lbTotOrd", "ordering.html#totals", "What the whole order comes to, tax included."},

    // the search window
    HelpTopic{"Find", "search.html#window", "Searches the list of articles."},
    HelpTopic{"txFind", "search.html#window",
              "A part of the code or the description. Capitals and small letters make no difference."},
    HelpTopic{"cbCode", "search.html#columns", "Searches the column with the codes."},
    HelpTopic{"cbDesc", "search.html#columns", "Searches the column with the descriptions."},
    HelpTopic{"cbOther", "search.html#columns", "Searches your supplier's extra column."},
    HelpTopic{"cbFirst", "search.html#going-on", "Searches from the top of the list."},
    HelpTopic{"cbNext", "search.html#going-on", "Searches on downwards from the marked row."},
    HelpTopic{"cbPrev", "search.html#going-on", "Searches back upwards from the marked row."},
    HelpTopic{"cbCancel", "search.html#going-on", "Closes the search window."},

    // what is new
    HelpTopic{"News", "new.html#window", "What the last update of the catalogue has changed."},
    HelpTopic{"OfferNews", "new.html#window", "Shows what the last update of the catalogue has changed."},
    HelpTopic{"NewsPage", "new.html#window",
              "Prices, new articles and articles that are gone. Click a code to go to the article."},

    // the window "Orders"
    HelpTopic{"Orders", "orders.html#window", "Orders that left, and those that you have kept for later."},
    HelpTopic{"txOrderSearch", "orders.html#find",
              "Finds orders by your number, an article or a text. Beginnings of words are enough."},
    HelpTopic{"OrderSuppliers", "orders.html#find", "Whose orders are listed."},
    HelpTopic{"OrderList", "orders.html#window",
              "Your orders, the newest first. The one that is marked is shown below."},
    HelpTopic{"OrdersSplit", "orders.html#window",
              "Drag the line between them to give the list or the order more room."},
    HelpTopic{"OrderLines", "orders.html#again",
              "What was ordered, as it was then. Mark lines to order only these again."},
    HelpTopic{"ShowDocument", "orders.html#document", "Shows the printed order, or the text of the e-mail."},
    HelpTopic{"PrintAgain", "orders.html#document",
              "Prints the document once more, or saves it as a PDF file."},
    HelpTopic{"OrderAgain", "orders.html#again",
              "Orders the same again, all lines or those that are marked, at today's prices. You see first "
              "what has changed."},
    HelpTopic{"ContinueOrder", "orders.html#unfinished", "Puts the unfinished order back onto yours."},
    HelpTopic{"DeleteOrder", "orders.html#delete", "Deletes the marked order, after a question."},
    HelpTopic{"DeleteBefore", "orders.html#delete",
              "Deletes all orders that left before a day, after a question."},
    HelpTopic{"dtDeleteBefore", "orders.html#delete", "Orders that left before this day are deleted."},

    // delivery addresses
    HelpTopic{"Addresses", "orders.html#addresses",
              "Fills the boxes with an address that you have kept, or keeps the one that stands there."},
    HelpTopic{"AddressBook", "orders.html#manage", "The delivery addresses that you have kept."},
    HelpTopic{"AddressList", "orders.html#manage", "The delivery addresses that you have kept, by name."},
    HelpTopic{"UseAddress", "orders.html#addresses", "Fills the delivery details with this address."},
    HelpTopic{"RenameAddress", "orders.html#manage", "Gives the address another name."},
    HelpTopic{"DeleteAddress", "orders.html#manage", "Deletes the address, after a question."},

    // the help window
    HelpTopic{"HelpWindow", "index.html#using", "The help book."},
    HelpTopic{"txHelpSearch", "index.html#using", "A word to look for in the whole help book."},
    HelpTopic{"HelpContents", "index.html#using", "The pages of the help book and what is on them."},
    HelpTopic{"HelpHits", "index.html#using", "The pages that hold the word you look for."},
    HelpTopic{"HelpPage", "index.html#using", "A page of the help book. Its links can be clicked."},
};

/// The control's own topic; null where there is none.
[[nodiscard]] constexpr const HelpTopic* helpTopicOf(std::string_view control) {
    for (const auto& topic : helpTopics)
        if (topic.control == control)
            return &topic;
    return nullptr;
}

}
