#include "help/help_topics.h"

#include <algorithm>

namespace depcalc {
namespace {

constexpr HelpTopic topics[] = {
    {"ID", "Asset ID", "Choose a unique identification number for this asset."},
    {"Name", "Name", "Choose a name for this asset."},
    {"Serial", "Serial Number", "Enter the asset’s serial number here."},
    {"Dept", "Department/Location",
     "If the asset is associated with a particular department or location, enter it here."},
    {"Basis", "Basis",
     "To determine basis, add up all the costs of placing this asset in service. Include "
     "asset cost, sales tax, shipping and delivery, installation charges, and other "
     "incidental costs without which the asset would not be of service to your business. If "
     "you use the asset for both business and personal purposes, enter only the portion "
     "used for business."},
    {"Salvage", "Salvage Value",
     "Estimate the amount you expect the asset to be worth at the end of its useful life, "
     "and enter it here."},
    {"StartDate", "Placed-in-Service Date",
     "Enter the date you started using this asset in your business."},
    {"ProdCap", "Production Capacity",
     "To calculate the Units of Production depreciation rate, estimate the number of units "
     "you expect this asset to produce over its useful life and enter it here.\r\n\r\n"
     "To find the depreciation expense for a year, a quarter, or a month, multiply the "
     "number of units produced during that period by the UOP rate. This field is optional."},
    {"Convention", "Convention",
     "The convention you choose affects the way depreciation is prorated in the periods of "
     "acquisition and disposal.\r\n\r\n"
     "Full Year: A full year’s depreciation in the first year and none in the last.\r\n"
     "Half Year: Half of one year’s depreciation in the first year and half in the last.\r\n"
     "Full Month: Depreciation is prorated according to the number of months in service "
     "during the year, including the month placed in service. \r\n"
     " Half Month:  Depreciation is prorated according to the number of months in service "
     "during the year.  The month the asset is placed in service is included only if the "
     "placed-in-service date falls on or before the 15th.\r\n"
     "Actual days: Depreciation is prorated according to the number of days in service "
     "during the year."},
    {"FY", "First Month of Fiscal Year",
     "To change your fiscal year, choose Company Info from the Company menu.  Select a new "
     "month from the drop-down list and click OK."},
    {"Recovery", "Useful Life",
     "Estimate the number of years you expect to use this asset in your business, and enter "
     "it here.\r\n\r\n"
     "The IRS suggests the following useful lives for these common assets:\r\n\r\n"
     "Office furniture and equipment: 7 years\r\n"
     "Computers, typewriters, calculators, copiers: 5 years\r\n"
     "Automobiles and trucks: 5 years\r\n"
     "Assets used in construction activities: 5 years"},
    {"Total", "Why is the DDB total different?",
     "The Double Declining Balance calculation ignores residual value.  This often results "
     "in a discrepancy between total depreciation and the asset’s residual value.  Many "
     "companies compensate for this difference by switching to the Straight Line method for "
     "the last two years of depreciation.  The Straight Line method is applied to the "
     "balance of the depreciable value."},
    {"Step1", "Step 1 of 2", "To get to Step 2, click the calculate button."},
    {"Step2", "Step 2 of 2", "To get back to Step 1, click the edit button."},
    {"Method", "Depreciation Method", "The Dep Method is..."},
    {"UOPRate", "UOP Rate", "The UOP Rate is..."},
    {"FYxx", "Fiscal Year", "Enter the depreciation..."},
    {"MainHelp", "Help", ""},
    {"Compare", "Comparing depreciation methods",
     "1. Click the Calculate Depreciation tab.\r\n\r\n"
     "2. Enter all of the pertinent information for your asset, and then click Calculate. "
     "The calculator displays a comparison of depreciation methods for the asset.\r\n"
     "Note: If you're unsure of what to enter in a particular field, click the field "
     "name.\r\n\r\n"
     "3. Choose a method, and click Save to record your choice,\r\n"
     "or\r\n"
     " Click Edit to return to data entry."},
    {"Enter", "Entering assets without comparing methods",
     "You may have existing assets for which you've already chosen a depreciation method, "
     "such as a partially depreciated computer bought several years ago.  You can bypass "
     "the depreciation comparison and store information about these assets in the View All "
     "Assets record.\r\n\r\n"
     "1. From View All Assets, click New.\r\n\r\n"
     "2. On the Calculate Depreciation tab, enter all of the pertinent information for the "
     "asset and click Save. The calculator displays the asset record on the View All Assets "
     "tab."},
    {"Recalc", "Recalculating depreciation expense",
     "1. Click the View All Assets tab.\r\n\r\n"
     "2. Click on the asset you wish to change.\r\n\r\n"
     "3. Click the Edit button. The calculator displays the asset record on the Calculate "
     "Depreciation tab.\r\n\r\n"
     "4. Make any necessary changes.\r\n\r\n"
     "5. To recalculate and compare different methods, click Calculate. When the "
     "depreciation method comparison appears, choose a method and then click Save.\r\n"
     "Note: You can also save changes without recalculating depreciation expense by "
     "clicking Save."},
    {"Delete", "Deleting a record",
     "1. Click the View All Assets tab.\r\n\r\n"
     "2. Click the column for the asset you want to delete.\r\n\r\n"
     "3. Click Delete."},
    {"Print", "Printing the asset record",
     "1. Click the View All Assets tab.\r\n\r\n"
     "2.  Click Print."},
};

constexpr HelpLink links[] = {
    {"Comparing depreciation methods", "Compare"},
    {"Entering assets without comparing methods", "Enter"},
    {"Recalculating depreciation expense", "Recalc"},
    {"Printing the asset record", "Print"},
    {"Deleting a record", "Delete"},
};

}  // namespace

std::span<const HelpTopic> helpTopics() { return topics; }

const HelpTopic* findHelpTopic(std::string_view topic) {
  const auto* const found = std::find_if(std::begin(topics), std::end(topics),
                                         [topic](const HelpTopic& t) { return t.topic == topic; });
  return found == std::end(topics) ? nullptr : found;
}

std::span<const HelpLink> helpLinks() { return links; }

}  // namespace depcalc
