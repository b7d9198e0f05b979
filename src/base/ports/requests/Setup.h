#pragma once

/// Requests that open the screens of setting up a business and of its lists.
namespace quillary {

struct OpenFirstTime {};
struct OpenPersonalInformation {};
struct OpenServices {};
/// Fetches services from head office; the list of services is then loaded again.
struct OpenAcquireServices {
  using Result = bool;
};
/// Replaces details, services or clients by what head office holds.
struct OpenCopyFromOstrel {};
struct OpenEmployees {};
struct OpenMiscellaneousSettings {};
struct OpenBanks {};
struct OpenVisitFrequencies {};
struct OpenPaymentMethods {};
struct OpenDivisions {};
struct OpenCountries {};
struct OpenHoliday {};
struct OpenFixClientDetails {};
struct OpenScheduleClients {};
struct ImportFromBravantiOne {};

}  // namespace quillary
