#pragma once

#include <QByteArray>
#include <QPageRanges>
#include <QPrinter>
#include <QString>

#include <optional>

/// What a print dialog has asked for, done with pages that are a PDF already.
namespace ui::qt {

/// Proposes a file name made of the document's name, in the folder for the user's documents or, later on, in
/// the one chosen before.
void proposeFile(QPrinter& printer);

/// Which pages are wanted; empty for all.
[[nodiscard]] QPageRanges rangesOf(const QPrinter& printer);

/// Writes the PDF to the file, or hands it to the printer, that the dialog has set. Answers with what went
/// wrong, for the user to read; with nothing when all is well. A file that was there before stays as it was
/// unless the new one is complete.
[[nodiscard]] std::optional<QString> output(const QByteArray& pdf, QPrinter& printer);

}
