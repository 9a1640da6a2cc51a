"""The checks themselves, on small trees that hold one fault each and on one that holds none."""

import pathlib
import subprocess
import tempfile
import unittest

import check_arrows
import check_sizes
import check_words

SOUND_TREE = {
    "platform/files.h": "",
    "platform/automation.h": '#include "platform/linux/automation/types.h"\n#ifdef _WIN32\n#endif\n',
    "platform/linux/automation/types.h": "#include <cstdint>\n",
    "automation/com_ptr.h": '#include "platform/automation.h"\n',
    "companions/contracts/sound_file.h": '#include "automation/com_ptr.h"\n',
    "companions/dusoro/reader.h": '#include "companions/contracts/sound_file.h"\n',
    "companions/velto/device.h": '#include "platform/files.h"\n',
    "control/interfaces/transform.h": '#include "companions/contracts/sound_file.h"\n',
    "control/signal/filter.h": "#include <span>\n",
    "control/editor/range_edit.h":
        '#include "control/interfaces/transform.h"\n#include "control/signal/filter.h"\n',
    "control/view/layers.h": '#include "control/editor/range_edit.h"\n',
    "control/objects/position.h": '#include "control/view/layers.h"\n',
    "control/server/mavrin2.h": '#include "control/objects/position.h"\n',
    "hosts/script/main.cpp": '#include "automation/com_ptr.h"\n#include <lua5.4/lua.hpp>\n',
    "hosts/register/main.cpp": "",
    "tests/support/recorder.h": '#include "control/server/mavrin2.h"\n',
    "bench/edit.cpp": '#include "tests/support/recorder.h"\n',
    # Harmless beside what is looked for; cut, so that this file does not hold it either.
    "README.md": "A specifi" "cation of its own; par" "t 2.1 is lower case; a/work/folder.\n",
}

BAD_INCLUDES = [
    ("platform/files.h", '#include "automation/com_ptr.h"', "must not know automation"),
    ("automation/com_ptr.h", '#include "companions/contracts/sound_file.h"', "must not know"),
    ("automation/com_ptr.h", '#include "platform/linux/automation/types.h"', "adapter"),
    ("companions/contracts/sound_file.h", '#include "companions/dusoro/reader.h"', "must not know"),
    ("companions/velto/device.h", '#include "companions/dusoro/reader.h"', "must not know"),
    ("companions/velto/device.h", '#include "control/signal/filter.h"', "must not know control"),
    ("control/signal/filter.h", '  #  include "control/editor/range_edit.h"', "must not know"),
    ("control/editor/range_edit.h", '#include "control/view/layers.h"', "must not know"),
    ("control/interfaces/transform.h", '#include "control/signal/filter.h"', "must not know"),
    ("control/objects/position.h", '#include "control/server/mavrin2.h"', "must not know"),
    ("control/objects/position.h", '#include "companions/velto/device.h"', "must not know"),
    ("control/server/mavrin2.h", '#include "tests/support/recorder.h"', "must not know tests"),
    ("hosts/script/main.cpp", '#include "control/interfaces/transform.h"', "must not know control"),
    ("hosts/script/main.cpp", '#include "hosts/register/main.cpp"', "must not know"),
    ("control/view/layers.h", '#include "geometry.h"', "written from its root"),
    ("control/view/layers.h", "#include <control/view/layers.h>", "use quotes"),
    ("control/view/layers.h", "#include LAYERS", "cannot be told"),
    ("control/view/layers.h", "#if defined(_WIN32)", "adapters"),
    ("control/paint/brush.h", '#include "platform/files.h"', "must not know"),
]

# Put together here, so that this file does not hold what it looks for.
BAD_WORDS = [
    ("README.md", "See Pa" + "rt 2.1."),
    ("docs/a.md", "Behaves as spec" + "ified."),
    ("control/view/layers.h", "// Rounded as the\n// spec" + "ification wants."),
    ("automation/com_ptr.h", "// The spe" + "c, again."),
    ("Makefile", "all:\n\tcp a /wo" + "rk/main/b"),
    ("examples/tour.lua", "-- TO" + "DO: sing"),
    ("control/view/layers.h", "// a place" + "holder until the view exists"),
]


class Checks(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.root = cls.enterClassContext(tempfile.TemporaryDirectory())
        subprocess.run(["git", "init", "-q", cls.root], check=True)
        for name, text in SOUND_TREE.items():
            cls.write(name, text)

    @classmethod
    def write(cls, name, text):
        file = pathlib.Path(cls.root, name)
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def faults(self, check, name=None, line=None):
        """What `check` finds in the sound tree with one more line in one of its files."""
        if not name:
            return check.faults(self.root)
        self.write(name, "\n" + SOUND_TREE.get(name, "") + line + "\n")
        try:
            return check.faults(self.root)
        finally:
            self.write(name, SOUND_TREE.get(name, ""))

    def test_a_sound_tree_has_no_fault(self):
        self.assertEqual(self.faults(check_arrows), [])
        self.assertEqual(self.faults(check_words), [])
        self.assertEqual(self.faults(check_sizes), [])

    def test_every_wrong_include_is_found_once_with_its_line(self):
        for name, line, message in BAD_INCLUDES:
            with self.subTest(name=name, line=line):
                found = self.faults(check_arrows, name, line)
                self.assertEqual([fault[0] for fault in found], [name])
                self.assertEqual(found[0][1], 2 + SOUND_TREE.get(name, "").count("\n"))
                self.assertIn(message, found[0][2])

    def test_every_unwanted_word_is_found_even_across_lines(self):
        for name, line in BAD_WORDS:
            with self.subTest(name=name, line=line):
                self.assertEqual([fault[0] for fault in self.faults(check_words, name, line)],
                                 [name])

    def test_a_long_file_is_found_and_lines_of_tests_are_counted_apart(self):
        found = self.faults(check_sizes, "control/view/layers.h", "\n" * check_sizes.LONGEST)
        self.assertEqual([fault[0] for fault in found], ["control/view/layers.h"])
        before = check_sizes.shares(self.root)
        self.write("tests/view/layers_test.cpp", "\n\n")
        self.write("tests/view/layers.lua", "\n")
        self.write("examples/tour.lua", "\n")
        self.write("control/view/scene.h", "\n")
        self.assertEqual(check_sizes.shares(self.root), (before[0] + 3, before[1] + 1))


if __name__ == "__main__":
    unittest.main()
