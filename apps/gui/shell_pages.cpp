// The user information and about windows of the main menu, and the help window that F1 opens.
#include <QFormLayout>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "pages.h"
#include "properties/vb.h"
#include "shell/constants.h"
#include "shell/user_info.h"
#include "trap.h"

namespace kestrane::gui {

frmUserData::frmUserData(MainWindow& w) : Page(&w), w_(w), watcher_(this, w.ui) {
  auto* layout = new QVBoxLayout(this);
  auto* note = new QLabel("This information is printed on the specification sheets and the quotation request.");
  note->setWordWrap(true);
  layout->addWidget(note);
  auto* form = new QFormLayout;
  for (size_t i = 0; i < 8; ++i) {
    Text1[i] = new QLineEdit;
    Text1[i]->setMaximumWidth(420);
    watcher_.Watch(Text1[i]);
    form->addRow(Q(kUserInfoCaptions[i]), Text1[i]);
  }
  layout->addLayout(form);
  layout->addStretch();
  cmdDone = new QPushButton("&Done");
  layout->addWidget(cmdDone, 0, Qt::AlignRight);
  connect(cmdDone, &QPushButton::clicked, this, Trapped(w_.ui, [this] {
    for (int i = 1; i <= 8; ++i) w_.session.data.USERINFO(i) = S(Text1[static_cast<size_t>(i - 1)]->text());
    WriteUserInfo(w_.session.data.paths.UserDataFile(kUserInfoFile), w_.session.data.USERINFO, w_.ui);
    w_.SwapForms(Form::frmUserData, Form::MainForm);
  }));
}

void frmUserData::Activate() {
  for (int i = 1; i <= 8; ++i) Text1[static_cast<size_t>(i - 1)]->setText(Q(w_.session.data.USERINFO(i)));
  Text1[0]->setFocus();
}

frmAbout::frmAbout(MainWindow& w) : Page(&w) {
  auto* layout = new QVBoxLayout(this);
  auto* title = new QLabel("<h1>Kestrane</h1><p>Design of steam jet vacuum systems: ejectors, condensers and liquid ring "
                           "pumps, thermo compressors, and the engineering calculators around them.</p>");
  title->setWordWrap(true);
  layout->addWidget(title);
  auto* form = new QFormLayout;
  lblVersion = new QLabel(Q(ProgramVersionText()));
  form->addRow("Version:", lblVersion);
  layout->addLayout(form);
  layout->addStretch();
  cmdDone = new QPushButton("E&xit");
  layout->addWidget(cmdDone, 0, Qt::AlignRight);
  connect(cmdDone, &QPushButton::clicked, this, Trapped(w.ui, [&w] { w.SwapForms(Form::frmAbout, Form::MainForm); }));
}

}  // namespace kestrane::gui
