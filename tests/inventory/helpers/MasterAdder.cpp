// A workstation adding customers and items to the same company as another. It opens the
// company, prints "ready", waits until the start file exists (so that two of them start at the
// same moment), then adds <count> customers and <count> items the way the entry forms do: the
// keys from the control tables, the new record's defaults, one post each. It prints
// "added <customers> <items>"; a failure prints "error: <message>" and exits 2.
//
//   inventory_master_adder <company folder> <start file> <count>

#include "inventory/domain/ItemRecord.h"
#include "receivables/domain/CustomerRecord.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/Table.h"
#include "support/WorkstationStart.h"

#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>

using namespace corvane;

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: inventory_master_adder <company folder> <start file> <count>\n";
        return 64;
    }
    try {
        store::Session session;
        store::Database db(session);
        db.SetDirectory(argv[1]);
        db.Open();
        const int count = std::stoi(argv[3]);
        corvane::tests::AwaitStart(argv[2]);
        // A workstation keeps asking while the other holds the control row.
        auto retry = [](const std::string&) { return true; };
        int customers = 0, items = 0;
        for (int i = 0; i < count; ++i) {
            auto keys = receivables::DrawCustomerKeys(db, retry);
            if (!keys) throw std::runtime_error("customer draw given up");
            store::Table customer(db, "Customer");
            customer.Open();
            customer.Append();
            customer.FieldByName("CustomerID").SetAsInteger(keys->CustomerID);
            customer.FieldByName("CustomerNo").SetAsString(keys->CustomerNo);
            receivables::SetNewCustomerDefaults(db, customer);
            customer.FieldByName("CustomerName").SetAsString("Customer " + keys->CustomerNo);
            customer.Post();
            ++customers;

            auto itemKeys = inventory::DrawItemKeys(db, retry);
            if (!itemKeys) throw std::runtime_error("item draw given up");
            store::Table item(db, "Item");
            item.Open();
            item.Append();
            item.FieldByName("ItemID").SetAsInteger(itemKeys->ItemID);
            item.FieldByName("ItemNo").SetAsString(itemKeys->ItemNo);
            inventory::SetNewItemDefaults(db, item);
            item.FieldByName("ItemDescription").SetAsString("Item " + itemKeys->ItemNo);
            item.FieldByName("ItemTypeID").SetAsInteger(1);
            item.Post();
            ++items;
        }
        std::cout << "added " << customers << " " << items << std::endl;
        return 0;
    } catch (const std::exception& e) {
        std::cout << "error: " << e.what() << std::endl;
        return 2;
    }
}
