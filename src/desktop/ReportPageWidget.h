#pragma once

#include <QWidget>

#include <memory>

namespace corvane::reports {
class ReportDocument;
struct Page;
} // namespace corvane::reports

namespace corvane::desktop {

// One report page as white paper on the grey of the preview, at a zoom in percent. It keeps the
// document itself, not the page, so a page is never drawn after its document let it go.
class ReportPageWidget : public QWidget {
    Q_OBJECT

public:
    // Grey around the paper, in pixels.
    static constexpr int Margin = 12;

    explicit ReportPageWidget(QWidget* parent = nullptr);

    void ShowPage(std::shared_ptr<const reports::ReportDocument> document, int pageNumber,
                  int zoom);
    // Null while there is no page to draw.
    const reports::Page* CurrentPage() const;
    double Scale() const { return zoom_ / 100.0; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::shared_ptr<const reports::ReportDocument> document_;
    int pageNumber_ = 0;
    int zoom_ = 100;
};

} // namespace corvane::desktop
