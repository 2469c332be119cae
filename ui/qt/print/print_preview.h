#pragma once

#include <QBuffer>
#include <QDialog>
#include <QLabel>
#include <QPdfDocument>
#include <QPdfView>
#include <QToolBar>

namespace ui::qt {

/// The pages of a PDF as they will be printed, over the middle of the parent's window. Deletes itself when it
/// is closed.
class PrintPreview final : public QDialog {
    Q_OBJECT

public:
    PrintPreview(QByteArray pdf, QWidget* parent);

signals:
    void printAsked();

private:
    [[nodiscard]] QToolBar* toolBar();
    [[nodiscard]] double shownFactor() const;
    void zoom(int direction);
    void turn(int pages);
    void showPageNumber();

    QByteArray m_pdf;
    QBuffer m_device;
    QPdfDocument m_document;
    QPdfView* m_view;
    QLabel* m_pageNumber;
};

}
