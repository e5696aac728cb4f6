"""The help compiler, checked through our own reader: the real help source
comes back topic by topic (titles, text, bold, jumps), every context name and
keyword leads to its topic, the program's help requests find what they ask
for, a help file of many blocks and tree pages reads back right, and bad
sources stop the compiler at the right line.

    python3 test_help.py                        runs the tests
    python3 test_help.py --write-long-source F  writes the many-block source
"""
import os
import re
import subprocess
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
COMPILER = os.path.join(ROOT, "help", "make-help")
SOURCE = os.path.join(ROOT, "help", "prismo.help")
sys.path.insert(0, HERE)
from read_hlp import HelpFile, winhelp_hash  # noqa: E402


def expected_topics(text):
    """What the source says each topic holds: context, title, keywords, and
    its paragraphs as runs of (text, bold, jump target)."""
    topics = []
    for block in re.split(r"\n\s*\n", "\n".join(l for l in text.split("\n") if not l.startswith("#"))):
        starts_paragraph = True
        for line in block.strip().split("\n"):
            if line.startswith(".topic"):
                _, context, title = line.split(None, 2)
                topics.append({"context": context, "title": title, "keywords": [], "paragraphs": []})
            elif line.startswith(".keyword"):
                topics[-1]["keywords"].append(line[8:].strip())
            elif line.startswith("- "):
                topics[-1]["paragraphs"].append("\u2022 " + line[2:])
            elif starts_paragraph:
                topics[-1]["paragraphs"].append(line)
            else:
                topics[-1]["paragraphs"][-1] += " " + line
            starts_paragraph = line.startswith(".")
    for t in topics:
        t["paragraphs"] = [runs(p) for p in t["paragraphs"]]
    return topics


def runs(paragraph):
    out, bold = [], False
    for token in re.findall(r"\*\*|\[[^\]]+\]\([^)]*\)|\\.|[^*\[\\]+|.", paragraph):
        if token == "**":
            bold = not bold
            continue
        jump = re.match(r"\[([^\]]+)\]\(([^)]*)\)", token)
        text, target = (jump.group(1), jump.group(2)) if jump else (token[-1] if token.startswith("\\") else token, None)
        if out and out[-1][1:] == (bold, target) and target is None:
            out[-1] = (out[-1][0] + text, bold, None)
        else:
            out.append((text, bold, target))
    return out


def file_runs(hlp, paragraph):
    """A paragraph as the file has it, in the same terms as runs()."""
    out = []
    for text, font, jump in paragraph.runs:
        bold = hlp.fonts[font][0]
        if out and out[-1][1:] == (bold, jump) and jump is None:
            out[-1] = (out[-1][0] + text, bold, None)
        else:
            out.append((text, bold, jump))
    return out


def compile_source(text, folder, name="help.help"):
    source, output = os.path.join(folder, name), os.path.join(folder, "out.hlp")
    with open(source, "w", encoding="utf-8") as f:
        f.write(text)
    done = subprocess.run([sys.executable, COMPILER, source, output], capture_output=True, text=True)
    return done, source, output


def long_source():
    """A topic of several blocks between short ones, and enough topics and
    keywords that every tree needs more than one page."""
    parts = [".topic first First topic\n.keyword First\nSee the [long topic](long_topic).\n"]
    parts.append(".topic long_topic A topic longer than a block\n.keyword Long Topic\n")
    for n in range(60):
        parts.append("Paragraph %d of the long topic, with **bold words** and plain words after them, "
                     "written out long enough that sixty of them fill several blocks of the file.\n" % n)
    for n in range(400):
        parts.append(".topic t%03d Topic number %d\n.keyword Keyword number %03d for the index\n"
                     ".keyword keyword number %03d, said again\nBack to [the long topic](long_topic).\n" % (n, n, n, n))
    return "\n".join(parts)


class CompiledHelp(unittest.TestCase):
    """Helpers for the two compiled files below."""

    def check_against_source(self, hlp, source_text):
        expected = expected_topics(source_text)
        self.assertEqual(len(hlp.topics), len(expected))
        for t in expected:
            with self.subTest(topic=t["context"]):
                topic = hlp.topic_for_context(t["context"])
                self.assertEqual(topic.title, t["title"])
                self.assertEqual(topic.paragraphs[0].text, t["title"])
                got = [file_runs(hlp, p) for p in topic.paragraphs[1:]]
                want = [[(text, bold, None if target is None else winhelp_hash(target))
                         for text, bold, target in p] for p in t["paragraphs"]]
                self.assertEqual(got, want)
                for keyword in t["keywords"]:
                    self.assertIs(hlp.partial_key(keyword), topic)
        words = [w for w, _ in hlp.keywords]
        self.assertEqual(sorted(words), sorted(k for t in expected for k in t["keywords"]))
        self.assertTrue(all(len(offsets) == 1 for _, offsets in hlp.keywords))
        self.assertEqual(hlp.titles, [(t.offset, t.title) for t in hlp.topics])
        self.assertIs(hlp.topic_at(hlp.contents), hlp.topic_for_context(expected[0]["context"]))
        jumps = {j for t in hlp.topics for p in t.paragraphs for _, _, j in p.runs if j is not None}
        self.assertTrue(jumps <= set(hlp.contexts))


class PrismoHelp(CompiledHelp):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        with open(SOURCE, encoding="utf-8") as f:
            cls.source = f.read()
        done, _, output = compile_source(cls.source, cls.folder.name)
        assert done.returncode == 0, done.stderr
        with open(output, "rb") as f:
            cls.hlp = HelpFile(f.read())

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def test_every_topic_reads_back_as_written(self):
        self.check_against_source(self.hlp, self.source)

    def test_title_and_window_caption(self):
        self.assertEqual(self.hlp.title, "Prismo!")
        self.assertEqual(self.hlp.windows["main"], "Prismo!")

    def test_the_program_help_requests_find_their_topics(self):
        asked = {"Table of Contents": "contents", "Table Of Contents": "contents",
                 "Import Settings": "wizard", "Options": "options"}
        for keyword, context in asked.items():
            with self.subTest(keyword=keyword):
                self.assertIs(self.hlp.partial_key(keyword), self.hlp.topic_for_context(context))
        # The empty keyword opens the index, which must have something to show.
        self.assertIsNone(self.hlp.partial_key(""))
        self.assertGreater(len(self.hlp.keywords), len(self.hlp.topics))


class ManyBlocks(CompiledHelp):
    def test_long_topic_and_many_topics_read_back(self):
        with tempfile.TemporaryDirectory() as folder:
            text = long_source()
            done, _, output = compile_source(text, folder)
            self.assertEqual(done.returncode, 0, done.stderr)
            with open(output, "rb") as f:
                hlp = HelpFile(f.read())
        self.check_against_source(hlp, text)
        self.assertGreaterEqual(len(hlp.topic_for_context("long_topic").blocks), 2)
        self.assertGreater(max(t.offset for t in hlp.topics) >> 15, 3)


class BadSource(unittest.TestCase):
    def test_mistakes_stop_the_compiler_at_their_line(self):
        cases = {
            "duplicate context": (".topic a One\nText.\n\n.topic A Two\nText.\n", 4, "already used"),
            "jump to nowhere": (".topic a One\nText.\n\nSee\n[this](missing).\n", 5, "missing"),
            "keyword before a topic": ("# help\n.keyword Lost\n.topic a One\nText.\n", 2, "before any topic"),
            "keyword of two topics": (".topic a One\n.keyword Same\nText.\n.topic b Two\n.keyword SAME\nText.\n",
                                      5, "already leads"),
            "character outside ANSI": (".topic a One\nArrows\nlike \u2192 are not ANSI.\n", 3, "U+2192"),
            "bad context name": (".topic a-b One\nText.\n", 1, "context name"),
        }
        for what, (text, line, message) in cases.items():
            with self.subTest(what), tempfile.TemporaryDirectory() as folder:
                done, source, output = compile_source(text, folder)
                self.assertEqual(done.returncode, 2)
                self.assertTrue(done.stderr.startswith("%s:%d: " % (source, line)), done.stderr)
                self.assertIn(message, done.stderr)
                self.assertFalse(os.path.exists(output))


if __name__ == "__main__":
    if len(sys.argv) == 3 and sys.argv[1] == "--write-long-source":
        with open(sys.argv[2], "w", encoding="utf-8") as f:
            f.write(long_source())
        sys.exit(0)
    unittest.main()
