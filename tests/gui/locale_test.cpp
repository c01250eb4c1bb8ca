// The windows under the user's locale: a comma-decimal desktop reads, designs and saves cases with a decimal
// point, as the command line does. The suite runs once under C and once under de_DE (LC_ALL).
#include <locale.h>

#include <clocale>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>

#include "case/jet_file.h"
#include "desktop.h"
#include "engine/design_run.h"
#include "properties/numeric.h"

namespace {

std::string LcAll() {
  const char* value = std::getenv("LC_ALL");
  return value == nullptr ? "" : value;
}

bool CommaLocaleAsked() { return LcAll().rfind("de_DE", 0) == 0; }

std::string Bytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The text of a results line of the command line, after its caption: "Total Motive Steam (#/hr)   606" gives "606".
std::string LineValue(const std::string& text, const std::string& caption) {
  const size_t at = text.find(caption);
  if (at == std::string::npos) return {};
  const size_t end = text.find('\n', at);
  std::string rest = text.substr(at + caption.size(), end - at - caption.size());
  return Trim(rest);
}

// A folder of its own for the files of one test.
struct Folder {
  Folder() : path(fs::temp_directory_path() / ("kestrane_gui_locale_" + std::to_string(::getpid()))) {
    fs::create_directories(path);
  }
  ~Folder() { fs::remove_all(path); }
  fs::path path;
};

}  // namespace

// Without this the de_DE run of the suite could pass on a machine where the locale silently failed to load.
TEST_F(Desktop, TheLocaleThatLcAllAsksForIsTheOneTheProgramRunsUnder) {
  const std::string point = std::localeconv()->decimal_point;
  if (CommaLocaleAsked()) {
    EXPECT_EQ(point, ",");
    EXPECT_EQ(QLocale().decimalPoint(), ",");
  } else if (LcAll() == "C" || LcAll() == "C.UTF-8") {
    EXPECT_EQ(point, ".");
  } else {
    GTEST_SKIP() << "LC_ALL is '" << LcAll() << "': run under C or de_DE.UTF-8";
  }
}

TEST_F(Desktop, TheSolventExampleDesignsAsOnTheCommandLineWithThreeCondensers) {
  ASSERT_TRUE(window->Start());
  OpenExample("SOLVENT-LOADS-THREE-STAGE.JET");
  EXPECT_FALSE(Told("Error")) << ui.notices.back();
  EXPECT_TRUE(DesignFromTheMenu());
  EXPECT_EQ(session.design.NSTAGES, 3);
  EXPECT_NE(session.design.HASC1, 0);
  EXPECT_NE(session.design.HASC2, 0);
  EXPECT_NE(session.design.HASAC, 0);
  const std::string cli = Run("LC_ALL=C '" + std::string(KESTRANE_CLI) + "' design '" +
                              (kProgram / "usrfiles" / "SOLVENT-LOADS-THREE-STAGE.JET").string() + "' 2>/dev/null");
  const std::string motive = LineValue(cli, "Total Motive Steam (#/hr)");
  ASSERT_FALSE(motive.empty()) << cli;
  EXPECT_EQ(FrameValue("Utilities", "Total Motive Steam (#/hr)").toStdString(), motive);
  // The condensers' head line, however wide the command line sets its columns.
  EXPECT_TRUE(std::regex_search(cli, std::regex(R"(\n +C1 +C2 +AC *\r?\n)"))) << cli;
  int condensers = 0;
  for (auto* box : Results()->frames->findChildren<QGroupBox*>()) {
    if (box->title() == "Condensers") condensers = box->findChild<QTableWidget*>()->columnCount();
  }
  EXPECT_EQ(condensers, 3);
}

TEST_F(Desktop, ACaseSavedFromTheWindowIsTheSameFileAsUnderTheCLocaleAndReadsBackTheSame) {
  ASSERT_TRUE(window->Start());
  Folder folder;
  const fs::path example = kProgram / "usrfiles" / "SOLVENT-LOADS-THREE-STAGE.JET";
  OpenExample(example.filename().string());
  // Saved by the window's File menu, where the case came from.
  const fs::path saved = folder.path / "SAVED.JET";
  window->screen.USERCASE = saved.string();
  QAction* save = Action(Input(), "&Save");
  ASSERT_NE(save, nullptr);
  save->trigger();
  ASSERT_TRUE(fs::exists(saved)) << ::testing::PrintToString(ui.notices);
  // The same case written by the case writer under the C locale.
  const fs::path reference = folder.path / "REFERENCE.JET";
  {
    locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
    const locale_t previous = uselocale(c);
    InputScreen screen = NewCase();
    ASSERT_TRUE(OpenCase(example, screen, ui));
    EXPECT_TRUE(SaveCaseAs(reference, screen, ui));
    uselocale(previous);
    freelocale(c);
  }
  const std::string bytes = Bytes(saved);
  EXPECT_EQ(bytes.substr(0, 6), " 2.01\r");
  EXPECT_EQ(bytes, Bytes(reference));
  EXPECT_EQ(bytes, Bytes(example));  // the shipped example was written in the C locale too
  // Read back by the window: the same boxes, and the same design.
  const InputScreen before = window->screen;
  ASSERT_TRUE(Input()->OpenFile(QString::fromStdString(saved.string())));
  EXPECT_EQ(window->screen.txtInput, before.txtInput);
  EXPECT_EQ(window->screen.txtInputA, before.txtInputA);
  EXPECT_EQ(window->screen.txtCID, before.txtCID);
  EXPECT_EQ(window->screen.txtCpph, before.txtCpph);
  EXPECT_EQ(window->screen.txtNCpph, before.txtNCpph);
  EXPECT_EQ(window->screen.txtNCMW, before.txtNCMW);
  EXPECT_EQ(window->screen.OptionCondenserType, before.OptionCondenserType);
  EXPECT_EQ(window->screen.lists, before.lists);
  EXPECT_FALSE(Told("Error")) << ui.notices.back();
}
