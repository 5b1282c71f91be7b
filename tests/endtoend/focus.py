"""Gives the keyboard to the window that came last, as every desktop does."""

import threading

from Xlib import X, display, error


class FocusGiver(threading.Thread):
    """Whatever else a window manager does is left out: windows lie where their program puts them."""

    def __init__(self):
        super().__init__(daemon=True)
        self.display = display.Display()
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self.display.sync()

    def run(self):
        while True:
            if self.display.next_event().type in (X.MapNotify, X.UnmapNotify, X.DestroyNotify):
                self.give()

    def give(self):
        for window in reversed(self.root.query_tree().children):
            try:
                attributes = window.get_attributes()
                # Menus and other short-lived windows take the keyboard by themselves.
                if attributes.map_state == X.IsViewable and not attributes.override_redirect:
                    window.set_input_focus(X.RevertToParent, X.CurrentTime)
                    self.display.sync()
                    return
            except error.XError:
                continue
