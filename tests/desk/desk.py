"""A hand at the desk: keys and clicks go to the display, what is on the screen is read through the
accessibility bus. Nothing here knows the program's inside."""

import os
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = float(os.environ.get("QUILLARY_DESK_PATIENCE", "20"))


class DeskError(AssertionError):
    """What was waited for did not come."""


def wait_for(what, look):
    """What `look` gives, once it gives something. Waits for that and never for a time."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = look()
        except GLib.Error:  # a window that is just going
            found = None
        if found:
            return found
        time.sleep(0.03)
    raise DeskError(f"waited in vain for {what}")


def xdo(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True, stdout=subprocess.DEVNULL)


def keys(*names):
    """Presses keys by their names: keys("alt+s", "Return")."""
    for name in names:
        xdo("key", "--clearmodifiers", name)


def type_words(words):
    xdo("type", "--delay", "8", words)


def walk_all(node):
    """Every control and cell below, whether it shows or not."""
    yield node
    try:
        for at in range(min(node.get_child_count(), 400)):
            child = node.get_child_at_index(at)
            if child:
                yield from walk_all(child)
    except GLib.Error:
        return


class Desk:
    """The program in its window."""

    def __init__(self, binary, business):
        self.log = open(os.environ["QUILLARY_HOME"] + "/desk.log", "w")
        self.process = subprocess.Popen([binary, "--file", business], stdout=self.log,
                                        stderr=subprocess.STDOUT)
        self.application = wait_for("the program on the bus", self._find_application)

    def _find_application(self):
        if self.process.poll() is not None:
            raise DeskError(f"the program ended with {self.process.returncode}")
        desktop = Atspi.get_desktop(0)
        for at in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(at)
            if child and child.get_process_id() == self.process.pid:
                return child
        return None

    def windows(self):
        """The windows that show, the last opened last."""
        self.application.clear_cache()
        found = [self.application.get_child_at_index(at)
                 for at in range(self.application.get_child_count())]
        return [window for window in found
                if window and window.get_state_set().contains(Atspi.StateType.SHOWING)]

    def titles(self):
        return [window.get_name() for window in self.windows()]

    def wait_window(self, title):
        return wait_for(f"a window named {title!r}, not {self.titles()}",
                        lambda: next((window for window in self.windows()
                                      if title in window.get_name()), None))

    def wait_gone(self, title):
        wait_for(f"{title!r} to close",
                 lambda: not any(title in name for name in self.titles()))

    def walk(self, root=None):
        """Every control that shows, from the outside in."""
        for top in [root] if root else self.windows():
            yield from self._walk(top)

    def _walk(self, node):
        try:
            states = node.get_state_set()
            if not states.contains(Atspi.StateType.SHOWING):
                return
            yield node
            # A table tells its cells by row and column; walking them all would take for ever.
            if node.get_role() in (Atspi.Role.TABLE, Atspi.Role.LIST, Atspi.Role.TREE_TABLE):
                return
            for at in range(node.get_child_count()):
                child = node.get_child_at_index(at)
                if child:
                    yield from self._walk(child)
        except GLib.Error:
            return

    def find(self, name, root=None, role=None):
        """The control that is heard under that name; None when none shows."""
        for node in self.walk(root):
            if node.get_name() == name and (role is None or node.get_role() == role):
                return node
        return None

    def wait(self, name, root=None, role=None):
        return wait_for(f"a control named {name!r}", lambda: self.find(name, root, role))

    def focused(self):
        """The control that has the focus, by what is heard of it."""
        for node in self.walk():
            if node.get_state_set().contains(Atspi.StateType.FOCUSED):
                return node
        return None

    def click(self, name, root=None):
        self.click_at(self.wait(name, root))

    def click_at(self, node, times=1):
        box = node.get_extents(Atspi.CoordType.SCREEN)
        xdo("mousemove", box.x + box.width // 2, box.y + box.height // 2)
        xdo("click", "--repeat", times, "--delay", 60, 1)

    def text_of(self, node):
        """What a field holds or a label says."""
        text = node.get_text_iface()
        if text:
            return Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text))
        return node.get_name()

    def field(self, name, root=None):
        """What the text box of that name holds."""
        return self.text_of(self.wait(name, root, Atspi.Role.TEXT))

    def says(self, words):
        """Whether anything that shows says the words: labels, boxes, offers."""
        self.application.clear_cache()
        return any(words in (node.get_name() or "") for node in self._everything())

    def _everything(self):
        for window in self.windows():
            yield from walk_all(window)

    def field_of_combo(self, name, root=None):
        """What an editable list holds: the text of its line."""
        combo = wait_for(f"a list labelled {name!r}", lambda: next(
            (node for node in self.walk(root)
             if node.get_role() == Atspi.Role.COMBO_BOX and name in self.labels_of(node)), None))
        for node in walk_all(combo):
            if node.get_role() == Atspi.Role.TEXT:
                return self.text_of(node)
        return self.text_of(combo)

    @staticmethod
    def labels_of(node):
        """The labels of a list: its own name is what is picked."""
        return [relation.get_target(at).get_name()
                for relation in node.get_relation_set()
                if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
                for at in range(relation.get_n_targets())]

    def rows(self, name):
        """The rows of a table as lists of what their cells say."""
        table = self.wait(name)
        iface = table.get_table_iface()
        if not iface:
            raise DeskError(f"{name} is no table")
        return [[(Atspi.Table.get_accessible_at(iface, row, column).get_name() or "")
                 for column in range(Atspi.Table.get_n_columns(iface))]
                for row in range(Atspi.Table.get_n_rows(iface))]

    def cell(self, name, row, column):
        return Atspi.Table.get_accessible_at(self.wait(name).get_table_iface(), row, column)

    def leave(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        self.log.close()
