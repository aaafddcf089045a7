#pragma once

namespace corvane::receivables::invoice_text {

// The sentences the invoice's rules answer with, for the forms and the tests alike.
inline constexpr const char* CustomerMissing = "Field 'Customer' must have a value";
inline constexpr const char* NoLines = "Items have not been entered";
inline constexpr const char* CodNoPayment =
    "This customer has terms C.O.D. (Cash on Delivery)\nso POS Payment must be entered.\n\nTo "
    "allow invoice to be entered without payment,\nuncheck C.O.D. on the customer terms tab\n"
    "(click the folder icon above or menu File | AR | Customers)\nand reselect the customer to "
    "get the latest terms for this invoice.";
inline constexpr const char* CodPaymentDiffers =
    "This customer has terms C.O.D. (Cash on Delivery)\nso POS Payment must be the same as "
    "Invoice Amount.";
inline constexpr const char* CustomerGone = "Customer no longer exists";
inline constexpr const char* WarehouseMissing = "Field 'Warehouse' must have a value";
inline constexpr const char* WarehouseGone = "Warehouse no longer exists";
inline constexpr const char* PaymentBankGone = "POS Payment Bank no longer exists.";
inline constexpr const char* PaymentBankCurrency =
    "POS Payment Bank must be same currency as customer.";
inline constexpr const char* ZeroAmount =
    "Invoice amount is zero.\nNote: It will not show on the invoices list if \"Outstanding\" is "
    "selected.";
inline constexpr const char* NumberNotUnique = "Invoice no. must be unique";
inline constexpr const char* PostedCannotChange =
    "Posted invoices cannot be changed...\n\nTo undo an invoice after posting, you must "
    "\"reverse\" it (enter it again with the opposite amount).\nYou can then remove the invoice "
    "and credit from the outstanding list if desired by entering a \"dummy\" payment for zero "
    "amount.";
inline constexpr const char* PostedCannotDelete =
    "Posted invoices cannot be deleted...\n\nTo undo an invoice after posting, you must "
    "\"reverse\" it (enter it again with the opposite amount).\nYou can then remove the invoice "
    "and credit from the outstanding list if desired by entering a \"dummy\" payment for zero "
    "amount.";
inline constexpr const char* TimeInvoiceNoDelete =
    "Invoices AutoCreated from time sheets cannot be deleted";
inline constexpr const char* TimeInvoiceNoCopy =
    "Invoices AutoCreated from time sheets cannot be copied";
inline constexpr const char* TimeLineNoEdit =
    "Invoice data AutoCreated from time sheets cannot be edited.";
inline constexpr const char* TimeLineNoDelete =
    "Invoice data AutoCreated from time sheets cannot be deleted.";
inline constexpr const char* TimeCustomerFixed =
    "Customer cannot be changed on invoices AutoCreated from time sheets.";
inline constexpr const char* CustomerNotFound = "Customer not found";
inline constexpr const char* LineItemMissing =
    "Field 'Item no.' must have a value...\nMake changes or press Esc to undo";
inline constexpr const char* LineItemNotFound =
    "Item not found...\nMake changes or press Esc to undo";
inline constexpr const char* ItemNotFound =
    "Item not found...\nPress Esc or select a different item";
inline constexpr const char* ItemSuspended = "Item has been suspended";
inline constexpr const char* ControlBusy =
    "Unable to open AR Control table exclusively...\nPlease try again later.";

// The point-of-sale payment pop-up.
inline constexpr const char* PaymentNeedsCustomer =
    "'Customer' must be entered before you can enter payment";
inline constexpr const char* PaidByMissing = "'Paid by' must be entered";
inline constexpr const char* ReferenceMissingCheck =
    "'Reference' must be entered (check number) if paid by check";
inline constexpr const char* ReferenceMissingCheque =
    "'Reference' must be entered (cheque number) if paid by cheque";
inline constexpr const char* BankGone = "Bank no longer exists";
inline constexpr const char* BankMissing = "'Bank' must be entered";
inline constexpr const char* BankCurrency = "'Bank' must be same currency as customer";

} // namespace corvane::receivables::invoice_text
