#include "help/help_topics.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace depcalc {
namespace {

/// FNV-1a, 64 bits: any letter, blank or line end that slips changes it.
std::uint64_t fingerprint(std::string_view text) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  return hash;
}

struct Expected {
  std::string_view topic;
  std::string_view title;
  std::size_t body_bytes;
  std::uint64_t body_fingerprint;
};

constexpr Expected catalogue[] = {
    {"ID", "Asset ID", 53, 0x85cc7e0337a4a424},
    {"Name", "Name", 29, 0xebfd480169f8424f},
    {"Serial", "Serial Number", 39, 0x43ea043a08baa815},
    {"Dept", "Department/Location", 83, 0xf02037c0b77097de},
    {"Basis", "Basis", 347, 0x0685f07dbead97e1},
    {"Salvage", "Salvage Value", 102, 0x1ee935511931cd97},
    {"StartDate", "Placed-in-Service Date", 61, 0xb4e880543ad9deb6},
    {"ProdCap", "Production Capacity", 326, 0x02905169866d97e5},
    {"Convention", "Convention", 738, 0x3a4f764b34317c2e},
    {"FY", "First Month of Fiscal Year", 128, 0x8441bce6d0bf56ee},
    {"Recovery", "Useful Life", 346, 0xd08f0e7f4a86eebb},
    {"Total", "Why is the DDB total different?", 368, 0xd7002686f66c9b8f},
    {"Step1", "Step 1 of 2", 45, 0x0324ef3db6f54bc8},
    {"Step2", "Step 2 of 2", 45, 0x3871fcf396dfb85a},
    {"Method", "Depreciation Method", 20, 0x1ea0b6eaed7502ec},
    {"UOPRate", "UOP Rate", 18, 0x56446f3056d17f24},
    {"FYxx", "Fiscal Year", 25, 0xfb65362ff589ba33},
    {"MainHelp", "Help", 0, 0xcbf29ce484222325},
    {"Compare", "Comparing depreciation methods", 392, 0xe795c4e6a7b32e18},
    {"Enter", "Entering assets without comparing methods", 484, 0x1cb61f82288b60cb},
    {"Recalc", "Recalculating depreciation expense", 466, 0x5cd0a34e9e080842},
    {"Delete", "Deleting a record", 110, 0x568c1101db9e5e55},
    {"Print", "Printing the asset record", 53, 0xe93cc6c85f56a242},
};

TEST(HelpTopics, AreLetterForLetter) {
  ASSERT_EQ(helpTopics().size(), std::size(catalogue));
  for (std::size_t i = 0; i < std::size(catalogue); ++i) {
    const HelpTopic& topic = helpTopics()[i];
    const Expected& expected = catalogue[i];
    EXPECT_EQ(topic.topic, expected.topic);
    EXPECT_EQ(topic.title, expected.title) << expected.topic;
    EXPECT_EQ(topic.body.size(), expected.body_bytes) << expected.topic << "\n" << topic.body;
    EXPECT_EQ(fingerprint(topic.body), expected.body_fingerprint) << expected.topic << "\n"
                                                                  << topic.body;
    EXPECT_EQ(findHelpTopic(expected.topic), &topic);
  }
}

TEST(HelpTopics, KeepTheirOddBlanksApostrophesAndLineEnds) {
  const auto body = [](std::string_view topic) { return findHelpTopic(topic)->body; };
  EXPECT_EQ(body("Serial"), "Enter the asset\u2019s serial number here.");
  EXPECT_EQ(body("FY"),
            "To change your fiscal year, choose Company Info from the Company menu.  "
            "Select a new month from the drop-down list and click OK.");
  EXPECT_EQ(body("Convention"),
            "The convention you choose affects the way depreciation is prorated in the periods "
            "of acquisition and disposal.\r\n"
            "\r\n"
            "Full Year: A full year\u2019s depreciation in the first year and none in the last."
            "\r\n"
            "Half Year: Half of one year\u2019s depreciation in the first year and half in the "
            "last.\r\n"
            "Full Month: Depreciation is prorated according to the number of months in service "
            "during the year, including the month placed in service. "
            "\r\n"
            " Half Month:  Depreciation is prorated according to the number of months in "
            "service during the year.  The month the asset is placed in service is included "
            "only if the placed-in-service date falls on or before the 15th.\r\n"
            "Actual days: Depreciation is prorated according to the number of days in service "
            "during the year.");
  EXPECT_TRUE(body("Total").find("and the asset\u2019s residual value.  Many") !=
              std::string_view::npos);
  EXPECT_TRUE(body("Compare").find("Note: If you're unsure") != std::string_view::npos);
  EXPECT_TRUE(body("Compare").ends_with(
      "record your choice,\r\nor\r\n Click Edit to return to data entry."));
  EXPECT_TRUE(body("Enter").find("you've already chosen") != std::string_view::npos);
  EXPECT_EQ(body("Print"), "1. Click the View All Assets tab.\r\n\r\n2.  Click Print.");
  EXPECT_EQ(body("Method"), "The Dep Method is...");
  EXPECT_EQ(body("UOPRate"), "The UOP Rate is...");
  EXPECT_EQ(body("FYxx"), "Enter the depreciation...");
}

TEST(HelpTopics, HaveNoLineEndButCrLf) {
  for (const HelpTopic& topic : helpTopics()) {
    for (std::size_t i = 0; i < topic.body.size(); ++i) {
      if (topic.body[i] == '\n') {
        EXPECT_EQ(topic.body[i - 1], '\r') << topic.topic;
      }
      if (topic.body[i] == '\r') {
        EXPECT_EQ(topic.body[i + 1], '\n') << topic.topic;
      }
    }
  }
}

TEST(HelpTopics, AreFoundByTheirExactName) {
  for (const std::string_view text : {"", "id", "basis", "Step", "Step1 ", "MAINHELP"}) {
    EXPECT_EQ(findHelpTopic(text), nullptr) << text;
  }
}

TEST(HelpLinks, LeadToTopicsOfTheirCaption) {
  const HelpLink expected[] = {{"Comparing depreciation methods", "Compare"},
                               {"Entering assets without comparing methods", "Enter"},
                               {"Recalculating depreciation expense", "Recalc"},
                               {"Printing the asset record", "Print"},
                               {"Deleting a record", "Delete"}};
  ASSERT_EQ(helpLinks().size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_EQ(helpLinks()[i].caption, expected[i].caption);
    EXPECT_EQ(helpLinks()[i].topic, expected[i].topic);
    ASSERT_NE(findHelpTopic(expected[i].topic), nullptr);
    EXPECT_EQ(findHelpTopic(expected[i].topic)->title, expected[i].caption);
  }
}

}  // namespace
}  // namespace depcalc
