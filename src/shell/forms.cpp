// What the desktop layer provides to the shared screen logic: the form swap, keystrokes, the event loop, window geometry.
#include "shell/forms.h"

namespace kestrane {

void DelaySeconds(float seconds, FormHost& host) {
  const float start = host.Timer();
  while (host.Timer() - start < seconds) host.ProcessEvents();
}

BoxLook FocusLook(bool focused) { return focused ? BoxLook{10, true} : BoxLook{15, false}; }

void EnterToTab(int16_t& keyAscii, FormHost& host) {
  if (keyAscii == 13) {
    host.SendTab(false);
    keyAscii = 0;
  }
}

void ArrowToTab(int16_t keyCode, FormHost& host) {
  if (keyCode == 40) host.SendTab(false);
  if (keyCode == 38) host.SendTab(true);
}

void SaveWindowGeometry(const WindowGeometry& form, WindowGeometry& shared) { shared = form; }

GeometryChange ApplyWindowGeometry(const WindowGeometry& form, const WindowGeometry& shared) {
  GeometryChange change;
  change.set_state = form.WINSTATE != shared.WINSTATE;
  if (shared.WINSTATE != 2) {
    change.move = form.WINLEFT != shared.WINLEFT || form.WINTOP != shared.WINTOP ||
                  form.WINWIDTH != shared.WINWIDTH || form.WINHEIGHT != shared.WINHEIGHT;
  }
  return change;
}

}  // namespace kestrane
