#pragma once

#include <filesystem>
#include <string>

namespace corvane {
class IniFile;
}

namespace corvane::shell {

// What the company forms (the organiser, the picker, the company database dialog, the welcome)
// need of the main form: the settings file, the session and the shared routines that open and
// close a company. The main form implements it; tests give a fake.
class CompanyShell {
public:
    virtual ~CompanyShell() = default;

    // Corvane.ini; the company shortcuts are its Companies section.
    virtual IniFile& Settings() = 0;
    // The folder under which company folders are suggested ("<it>/Data", "<it>/Data1"...).
    virtual const std::filesystem::path& CommonDataFolder() const = 0;
    // A session on a database server rather than on company folders.
    virtual bool IsRemote() const = 0;
    // A company database is open.
    virtual bool SessionActive() const = 0;

    // Opens the company in the folder; false after it said why (the session stays closed).
    virtual bool OpenCompany(const std::string& name, const std::string& folder) = 0;
    // Asks for the user when the company has users; false when the person gave up.
    virtual bool CheckLogin() = 0;
    virtual void EnableMainMenus(bool enabled) = 0;
    virtual void RebuildCompaniesMenu() = 0;
    // Closes every working form before a company change; raises when one refuses to close.
    virtual void CloseAllForms() = 0;
    // Makes every table of a company in the folder, which exists and holds no database yet.
    virtual void CreateCompanyTables(const std::string& folder) = 0;
    // The open company's Company table has no row: its wizard has not run.
    virtual bool CompanyTableEmpty() = 0;
    // Runs the new company wizard modally with the company name filled in.
    virtual void RunGettingStarted(const std::string& companyName) = 0;
    // Fills the open, empty company with the sample firm.
    virtual void FillSampleData() = 0;
};

} // namespace corvane::shell
