#pragma once

namespace corvane::receivables::payment_text {

// The sentences the payment's rules answer with, for the forms and the tests alike.
inline constexpr const char* BankMissing = "Field 'Bank' must have a value";
inline constexpr const char* CustomerMissing = "'Customer' must be entered";
inline constexpr const char* ReferenceMissingCheck =
    "'Reference' must be entered (check number) if paid by check";
inline constexpr const char* ReferenceMissingCheque =
    "'Reference' must be entered (cheque number) if paid by cheque";
inline constexpr const char* BankGone = "Bank no longer exists";
inline constexpr const char* BankCurrency =
    "Bank must be same currency as customer.\n\nIf you don't have an actual bank account for this "
    "currency, you can set up\na bank for this currency that links to a bank GL account for this "
    "currency.\nmenu File | General | Banks\nUnpost and adjust the payment JV (or enter a separate "
    "JV) to move the amount\nto your real bank GL account and enter the difference due to the "
    "exchange rate.\nThe balancing entry goes to the 'Gain/Loss on Exchange' GL account.";
inline constexpr const char* DateMissing = "Field 'Payment Date' must have a value";
inline constexpr const char* YearMissing = "Field 'Year of Period' must have a value";
inline constexpr const char* PeriodMissing = "Field 'Period' must have a value";
inline constexpr const char* NoLines = "Invoices have not been selected";
inline constexpr const char* PostedCannotChange =
    "Posted payments cannot be changed...\n\nTo undo a payment after posting, you must "
    "\"reverse\" it (enter it again with the opposite amount).\nTo select fully paid invoices on "
    "the new payment: right-click on the invoice section and deselect \"Outstanding\".";
inline constexpr const char* PostedCannotDelete =
    "Posted payments cannot be deleted...\n\nTo undo a payment after posting, you must "
    "\"reverse\" it (enter it again with the opposite amount).\nTo select fully paid invoices on "
    "the new payment: right-click on the invoice section and deselect \"Outstanding\".";
inline constexpr const char* CustomerFixed =
    "Customer cannot be changed unless invoices are removed first";
inline constexpr const char* CustomerNotFound = "Customer not found";
inline constexpr const char* AutoCreateNoCustomer = "Cannot AutoCreate unless customer is selected";
inline constexpr const char* AutoCreateReplaces =
    "AutoCreate will replace previous invoice payment lines.";
inline constexpr const char* ControlBusy =
    "Unable to open AR Control table exclusively...\nPlease try again later.";
inline constexpr const char* InvoiceAlreadyOn = "Invoice is already on this payment";

// The lines.
inline constexpr const char* LineInvoiceMissing =
    "Field 'Invoice' must have a value...\nMake changes or press Esc to undo";
inline constexpr const char* LineWriteOffAccountMissing =
    "Field 'Write-off GL Account' must have a value...\nMake changes or press Esc to undo";
inline constexpr const char* LineAccountNotFound =
    "GL Account not found...\nMake changes or press Esc to undo";
inline constexpr const char* DiscountNeedsFullPayment =
    "Discount can only be taken if invoice is fully paid...\nMake changes or press Esc to undo";
inline constexpr const char* WriteOffDiffers =
    "Payment + write-off does not equal amount owing...\n\nIf this is correct press OK. Otherwise "
    "press Cancel and make changes or press Esc to undo.";
inline constexpr const char* InvoiceDateReadOnly =
    "Invoice Date is read-only on the payment...\n\nThis is the invoice date for the selected "
    "invoice.";
inline constexpr const char* OwingReadOnly =
    "Amount Owing is read-only on the payment...\n\nThis is the amount owing for the selected "
    "invoice.";
inline constexpr const char* TypedAccountNotFound =
    "GL Account not found...\nPress Esc or enter a different account no";
inline constexpr const char* TypedAccountSuspended = "GL Account has been suspended";
inline constexpr const char* TypedSubaccountNotFound =
    "Subaccount not found...\nSelect a different subaccount or press Esc to undo";
inline constexpr const char* TypedSubaccountSuspended = "Subaccount has been suspended";

} // namespace corvane::receivables::payment_text
