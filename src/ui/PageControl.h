#pragma once

#include "ui/Control.h"
#include "ui/Layout.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane::ui {

class PageControl;

// One tab of a page control, with a layout of its own. Controls in that layout show, and take
// the focus, only while the page is the active one.
class Page : public Component {
public:
    Page(PageControl& owner, std::string name, std::string caption);
    ~Page() override;

    std::string Caption;
    bool TabVisible = true;
    PageControl& Owner() const { return owner_; }
    bool Showing() const;

    void SetLayout(LayoutItem root);
    const LayoutItem* Layout() const { return layout_.get(); }

    const char* TypeName() const override { return "Page"; }

private:
    PageControl& owner_;
    std::unique_ptr<LayoutItem> layout_;
};

class PageControl : public Control {
public:
    PageControl(Form& form, std::string name) : Control(form, std::move(name)) {}

    const std::vector<Page*>& Pages() const { return pages_; }
    // The first page until another is chosen.
    Page* ActivePage() const;
    // As the user's click on the tab: OnChanging may refuse, OnChange follows.
    void SetActivePage(Page& page);
    // Ctrl+Tab and Ctrl+Shift+Tab, wherever the focus is on the pages: the next visible page comes
    // forward, and the focus goes to its first control when it was on the page that went back.
    void SelectNextPage(bool forward);
    std::function<void(bool& allow)> OnChanging;
    std::function<void()> OnChange;

    const char* TypeName() const override { return "PageControl"; }
    // The caption of the active page.
    std::string Text() const override;

private:
    friend class Page;
    std::vector<Page*> pages_;
    Page* active_ = nullptr;
};

} // namespace corvane::ui
