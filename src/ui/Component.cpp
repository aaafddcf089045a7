#include "ui/Component.h"

#include "ui/Form.h"

namespace corvane::ui {

Component::Component(Form& form, std::string name) : form_(form), name_(std::move(name)) {
    form_.Register(*this);
}

Component::~Component() {
    form_.Unregister(*this);
}

} // namespace corvane::ui
