#pragma once

#include <string>

namespace corvane::ui {

class Form;

// Anything a form holds under a component name (editVendorNo, btnOK, mnuFilter), so that code,
// tests and scenarios find it by that name. It registers with its form when made and leaves when
// destroyed; the name is unique within the form, or empty for parts nobody needs to find.
class Component {
public:
    Component(Form& form, std::string name);
    virtual ~Component();
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;

    const std::string& Name() const { return name_; }
    Form& OwnerForm() const { return form_; }
    // The kind for messages and for the host: "Edit", "Button", "MenuItem".
    virtual const char* TypeName() const = 0;

    int Tag = 0;
    std::string Hint;

private:
    Form& form_;
    std::string name_;
};

} // namespace corvane::ui
