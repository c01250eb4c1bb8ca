// The results window's pricing controls by the pricing mode, the pricing form with its breakdown, print and PDF.
#include <fstream>

#include "desktop.h"
#include "documents/text_pages.h"
#include "pricing_form.h"
#include "properties/numeric.h"

namespace {

class PricingWindow : public Desktop {
 protected:
  void SetMode(const char* config) {
    fs::create_directories(userdata);
    std::ofstream(userdata / "KSConfig.DTA", std::ios::binary) << config;
  }
  void Design(const char* example) { DesignFile(kProgram / "usrfiles" / example); }
  // The temporary folder, where OUT.CSV goes, is the test's own while the test runs.
  void SetUp() override {
    tmp_ = qgetenv("TMPDIR");
    qputenv("TMPDIR", QByteArray::fromStdString(userdata.string()));
  }
  void TearDown() override {
    if (tmp_.isNull()) {
      qunsetenv("TMPDIR");
    } else {
      qputenv("TMPDIR", tmp_);
    }
  }
  QByteArray tmp_;
  // Opens the pricing form from its button.
  PricingForm* OpenPricing() {
    Results()->cmdPricePrint->click();
    return Results()->pricing;
  }
};

TEST_F(PricingWindow, ModeOneShowsThePricingButtonWhoseFormShowsTheBreakdown) {
  Design("FOUR-STAGE-SURFACE.JET");
  EXPECT_TRUE(Results()->cmdPricePrint->isVisible());
  EXPECT_TRUE(Results()->cmdPricePrint->isEnabled());
  EXPECT_FALSE(Results()->lblPrice->isVisible());
  PricingForm* form = OpenPricing();
  ASSERT_NE(form, nullptr);
  EXPECT_TRUE(form->isVisible());
  const QString text = form->breakdown->toPlainText();
  EXPECT_TRUE(text.contains("TOTAL"));
  EXPECT_TRUE(text.contains("TUBES C1"));
  EXPECT_TRUE(text.contains(QString::fromUtf8(kTubePremiumNote.data(), static_cast<int>(kTubePremiumNote.size()))));
  EXPECT_TRUE(form->price().complete);

  // Print goes through the preview as the page framework prints it: the head, then the table.
  std::string printed;
  window->preview = [&printed](QWidget*, const ReportJob& job) {
    TextPages pages;
    job.print(pages);
    printed = pages.text();
  };
  form->cmdPrint->click();
  EXPECT_NE(printed.find("Kestrane Pricing Breakdown"), std::string::npos);
  EXPECT_NE(printed.find("TOTAL"), std::string::npos);

  const fs::path pdf = userdata / "price.pdf";
  window->pdf_path = [&pdf](QWidget*, const QString&) { return QString::fromStdString(pdf.string()); };
  form->cmdExportPdf->click();
  EXPECT_TRUE(fs::exists(pdf));
  EXPECT_GT(fs::file_size(pdf), 1000u);
}

TEST_F(PricingWindow, ANewDesignRefreshesAnOpenForm) {
  Design("FOUR-STAGE-SURFACE.JET");
  PricingForm* form = OpenPricing();
  const float before = form->price().total.COST;
  Design("SOLVENT-LOADS-THREE-STAGE.JET");
  EXPECT_TRUE(form->isVisible());
  EXPECT_NE(form->price().total.COST, before);
  EXPECT_EQ(form->price().total.COST, PriceDesign(window->Context()).total.COST);
}

TEST_F(PricingWindow, ModeTwoAlsoShowsThePriceAndKeepsTheGridInOutCsv) {
  SetMode("2,\"\"\r\n");
  Design("FOUR-STAGE-SURFACE.JET");
  EXPECT_TRUE(Results()->cmdPricePrint->isVisible());
  ASSERT_TRUE(Results()->lblPrice->isVisible());
  const PriceBuildUp price = PriceDesign(window->Context());
  EXPECT_TRUE(Results()->lblPrice->text().contains(QString::fromStdString(Trim(FormatFixed(price.price, 14.2f)))));
  Results()->cmdDebugger->setChecked(true);
  EXPECT_TRUE(fs::exists(userdata / "OUT.CSV"));
}

TEST_F(PricingWindow, PricingOffShowsNoControlsAndWritesNoGrid) {
  SetMode("0,\"\"\r\n");
  Design("FOUR-STAGE-SURFACE.JET");
  EXPECT_FALSE(Results()->cmdPricePrint->isVisible());
  EXPECT_FALSE(Results()->lblPrice->isVisible());
  Results()->cmdDebugger->setChecked(true);
  EXPECT_FALSE(fs::exists(userdata / "OUT.CSV"));
}

TEST_F(PricingWindow, AnIncompletePriceSaysSoInTheFormAndBesideTheButton) {
  SetMode("2,\"\"\r\n");
  Design("SOLVENT-LOADS-THREE-STAGE.JET");
  window->screen.lists[kProcessSideMaterial] = 1;
  window->screen.lists[kWaterSideMaterial] = 2;
  Results()->ShowResults(true, "");
  EXPECT_TRUE(Results()->lblPrice->text().contains("NOT COMPLETE!"));
  PricingForm* form = OpenPricing();
  EXPECT_TRUE(form->breakdown->toPlainText().contains("Pricing could not be completed!"));
}

}  // namespace
