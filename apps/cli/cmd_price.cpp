// kestrane price CASE.JET: designs a case and prints its price build-up, item by item, with the total.
#include <cstdio>

#include "cli.h"
#include "pricing/price_buildup.h"

namespace kestrane::cli {

namespace {

struct PriceArgs {
  std::string file;
  bool json = false;
};

nlohmann::json ItemJson(const PriceItem& item) {
  nlohmann::json j = {{"name", item.name},
                      {"description", item.description},
                      {"complete", item.complete},
                      {"priced", item.priced},
                      {"MATL", JsonSingle(item.MATL)},
                      {"HOURS", JsonSingle(item.HOURS)},
                      {"COST", JsonSingle(item.COST)},
                      {"WEIGHT", JsonSingle(item.WEIGHT)},
                      {"weeks", item.weeks}};
  return j;
}

int Price(const GlobalOptions& options, const PriceArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  LoadDesignData(*session, ui);
  RequirePricing(*session, ui);
  InputScreen screen = NewCase();
  const DesignOutcome outcome = DesignCaseFile(*session, args.file, screen, ui, "price");
  const DesignContext ctx{session->design, session->data, screen, session->PINTERFIX, ui};
  const PriceBuildUp price = PriceDesign(ctx);
  const int exit_code = price.complete ? kExitDone : kExitRefused;
  if (args.json) {
    nlohmann::json items = nlohmann::json::array();
    for (const PriceItem& item : price.items) items.push_back(ItemJson(item));
    nlohmann::json doc = {{"case", args.file},
                          {"items", items},
                          {"total", ItemJson(price.total)},
                          {"complete", price.complete},
                          {"BLABOR", JsonSingle(price.BLABOR)},
                          {"DLR", JsonSingle(price.DLR)},
                          {"price", JsonSingle(price.price)},
                          {"notices", ui.notices},
                          {"errors", outcome.errors}};
    if (!price.complete) {
      doc["error"] = std::vector<std::string>(kPricingIncompleteLines.begin(), kPricingIncompleteLines.end());
    }
    PrintJson(doc);
    return exit_code;
  }
  std::printf("Price build-up: %s\n\n", screen.CASENAME.c_str());
  for (const std::string& line : PriceBreakdownLines(price)) std::printf("%s\n", line.c_str());
  for (const std::string& error : outcome.errors) std::fprintf(stderr, "Design error: %s\n", error.c_str());
  return exit_code;
}

}  // namespace

void RequirePricing(const Session& session, const RecordingUi& ui) {
  const PriceData& pricing = session.data.pricing;
  if (pricing.PRICEMODE != 0) return;
  Fail(kExitUsage,
       "Pricing is off: " + pricing.off_reason +
           " Pricing needs PRICEMODE 1 or 2 in KSConfig.DTA of the user's data folder and readable price files.",
       ui);
}

void AddPriceCommand(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto args = std::make_shared<PriceArgs>();
  auto* cmd = app.add_subcommand("price", "Design a case and print its price build-up (sample prices unless your own)");
  cmd->add_option("CASE", args->file, "The case file (.JET)")->required();
  cmd->add_flag("--json", args->json, "Print the items and the total as JSON");
  cmd->callback([&options, &exit_code, args] { exit_code = Price(options, *args); });
}

}  // namespace kestrane::cli
