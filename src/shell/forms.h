// What the desktop layer provides to the shared screen logic: the form swap, keystrokes, the event loop, window geometry.
#pragma once

#include <cstdint>

namespace kestrane {

// The program's windows.
enum class Form {
  MainForm,
  frmJetInput,
  frmJET0,
  TCInput,
  TCform,
  VaporPressureForm,
  frmMollier,
  ConvertForm,
  frmUDV,
  TailLeg,
  GasMassVol,
  dpVac,
  GoFigure,
  frmUserData,
  frmAbout
};

// Implemented by the desktop program.
class FormHost {
 public:
  virtual ~FormHost() = default;
  // The coming form is enabled, made visible and focused; then the leaving one is hidden and disabled.
  virtual void SwapForms(Form leaving, Form coming) = 0;
  // Sends a Tab keystroke (Shift+Tab when backwards) to the focused control.
  virtual void SendTab(bool backwards) = 0;
  // Runs the pending events once.
  virtual void ProcessEvents() = 0;
  // Time of day in seconds.
  virtual float Timer() = 0;
};

// Waits the given seconds, keeping the screen alive. A wrap at midnight is not handled.
void DelaySeconds(float seconds, FormHost& host);

// Enter (13) moves to the next field and is swallowed (keyAscii becomes 0).
void EnterToTab(int16_t& keyAscii, FormHost& host);

// How a text box looks under the focus convention of the main menu's tools:
// bright green (palette colour 10) with its whole text selected while it has
// the focus, white (palette colour 15) after.
struct BoxLook {
  int16_t backcolor = 15;
  bool select_all = false;
};
BoxLook FocusLook(bool focused);

// Down arrow (40) moves to the next field, up arrow (38) to the previous one; other keys do nothing.
void ArrowToTab(int16_t keyCode, FormHost& host);

// Window state and geometry shared by all forms, so the window seems to stay put while its contents change.
struct WindowGeometry {
  float WINSTATE = 0;  // 0 normal, 1 minimised, 2 maximised
  float WINLEFT = 0;
  float WINTOP = 0;
  float WINWIDTH = 0;
  float WINHEIGHT = 0;
};

// What the desktop does with a form's window when it is activated.
struct GeometryChange {
  bool set_state = false;  // set the window state to WINSTATE
  bool move = false;       // move to WINLEFT, WINTOP, WINWIDTH, WINHEIGHT
};

// Takes a form's window state and geometry as the shared one.
void SaveWindowGeometry(const WindowGeometry& form, WindowGeometry& shared);

// On activation: the state when it differs; the move unless maximised, when any value differs.
GeometryChange ApplyWindowGeometry(const WindowGeometry& form, const WindowGeometry& shared);

}  // namespace kestrane
