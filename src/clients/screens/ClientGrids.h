#pragma once

#include "clients/ClientChoices.h"
#include "clients/ClientJobs.h"
#include "clients/ClientList.h"
#include "clients/ClientMoney.h"
#include "clients/ClientServices.h"
#include "kit/GridColumns.h"

/// How the lists around a client stand in their tables.
namespace quillary::clients {

std::vector<GridColumn> ServiceColumns();
/// The key of a row is the place of its element. The main service is marked, and a service that
/// follows it shows no dates of its own. The empty element at the end of the array is no row.
std::vector<GridRow> ServiceRows(const ClientServiceArray& services);

std::vector<GridColumn> ClientJobColumns();
std::vector<GridRow> ClientJobRows(const std::vector<ClientJob>& jobs);
/// Beside the services there is room for the next few jobs only.
std::vector<GridColumn> NextJobColumns();
std::vector<GridRow> NextJobRows(const std::vector<ClientJob>& jobs, size_t atMost);

std::vector<GridColumn> InvoiceColumns();
std::vector<GridRow> InvoiceRows(const std::vector<ClientInvoice>& invoices);
std::vector<GridColumn> PaymentColumns();
std::vector<GridRow> PaymentRows(const std::vector<ClientPayment>& payments);
std::vector<GridColumn> SiteColumns();
std::vector<GridRow> SiteRows(const std::vector<Site>& sites);

std::vector<GridColumn> ClientListColumns();
GridRow ClientListGridRow(const ClientListRow& client);

}  // namespace quillary::clients
