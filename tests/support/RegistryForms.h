#pragma once

#include "shell/main/FormRegistry.h"
#include "ui/Application.h"
#include "ui/FormService.h"

namespace corvane::testing {

// The program's form service over a registry, for a form tested without the main form: the
// registry's forms are made in the test's company, every right is granted and no list prints.
// It serves the application for as long as it lives.
class RegistryForms : public ui::FormService {
public:
    RegistryForms(ui::Application& app, store::Database& db, const shell::FormRegistry& registry)
        : app_(app), db_(db), registry_(registry) {
        app_.SetFormService(this);
    }
    ~RegistryForms() override { app_.SetFormService(nullptr); }
    RegistryForms(const RegistryForms&) = delete;
    RegistryForms& operator=(const RegistryForms&) = delete;

    bool HasForm(std::string_view name) const override { return registry_.Find(name); }
    ui::Form* OpenForm(std::string_view name) override {
        const shell::FormFactory* factory = registry_.Find(name);
        if (!factory) return nullptr;
        shell::FormContext context{app_, db_};
        return &(*factory)(context);
    }
    bool CheckAccess(const std::string&, const std::string&) override { return true; }
    bool PrintList(ui::Form&) override { return false; }

private:
    ui::Application& app_;
    store::Database& db_;
    const shell::FormRegistry& registry_;
};

} // namespace corvane::testing
