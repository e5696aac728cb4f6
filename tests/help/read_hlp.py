"""Reads a WinHelp 3.1 file back for the tests, the way WinHelp and winhlp32
find things in it: the directory, |SYSTEM, |FONT, the records of |TOPIC
followed link by link, and the trees |CONTEXT, |KWBTREE (with |KWDATA and
|KWMAP) and |TTLBTREE. It shares nothing with the compiler and refuses a file
that breaks a rule those readers depend on (HelpFileError).

    python3 read_hlp.py --texts FILE OUT  writes what winhlp32 should show: each
        topic's text, then the Index's keywords, the parts split by form feeds
"""
import struct
import sys


class HelpFileError(Exception):
    pass


def need(condition, what):
    if not condition:
        raise HelpFileError(what)


def u16(data, at):
    return struct.unpack_from("<H", data, at)[0]


def u32(data, at):
    return struct.unpack_from("<I", data, at)[0]


def cstring(data, at):
    end = data.index(b"\0", at)
    return data[at:end], end + 1


def winhelp_hash(name):
    """The context-name hash, for looking names up; signed like |CONTEXT's keys."""
    value = 0
    for ch in name:
        c = ch.lower()
        if c.isdigit():
            code = 10 if c == "0" else int(c)
        elif c == ".":
            code = 12
        elif c == "_":
            code = 13
        elif "a" <= c <= "z":
            code = 17 + ord(c) - ord("a")
        else:
            raise ValueError("no hash for %r" % ch)
        value = (value * 43 + code) % (1 << 32)
    return value - (1 << 32) if value >= 1 << 31 else value


def compressed(data, at, short):
    """A compressed number of a paragraph record, unsigned; bit 0 of the first
    byte picks the long form. Short numbers are a byte or a WORD, long ones a
    WORD or a DWORD. Returns (value, next)."""
    sizes = (1, 2) if short else (2, 4)
    size = sizes[data[at] & 1]
    return int.from_bytes(data[at:at + size], "little") >> 1, at + size


class Paragraph:
    def __init__(self):
        self.runs = []      # (text, font, jump hash or None)

    @property
    def text(self):
        return "".join(t for t, _, _ in self.runs)


class Topic:
    def __init__(self, title, offset):
        self.title = title
        self.offset = offset
        self.paragraphs = []
        self.blocks = set()     # |TOPIC blocks its records lie in

    @property
    def text(self):
        return "\n".join(p.text for p in self.paragraphs)


class HelpFile:
    def __init__(self, data):
        self.data = data
        need(u32(data, 0) == 0x00035F3F, "not a help file")
        need(u32(data, 12) == len(data), "size in the header is not the file's size")
        self.directory = self.tree_entries(self.internal(u32(data, 4)), self.directory_entry)
        self.files = dict(self.directory)
        for name in ("|SYSTEM", "|FONT", "|TOPIC", "|CONTEXT"):
            need(name in self.files, "no %s" % name)
        self.read_system()
        self.read_fonts()
        self.read_topics()
        self.context_entries = self.tree_entries(self.file("|CONTEXT"), self.context_entry)
        self.contexts = dict(self.context_entries)
        self.keywords = self.read_keywords()
        self.titles = list(self.tree_entries(self.file("|TTLBTREE"), self.title_entry)) \
            if "|TTLBTREE" in self.files else []
        self.check_order()

    def check_order(self):
        """Lookups stop at the first key past the one sought: every tree must
        be in its own order."""
        def ascending(keys, what):
            need(all(a < b for a, b in zip(keys, keys[1:])), what + " out of order")
        ascending([n.encode() for n, _ in self.directory], "directory")
        ascending([h for h, _ in self.context_entries], "|CONTEXT (signed hashes)")
        ascending([w.encode("cp1252").lower() for w, _ in self.keywords], "|KWBTREE (letter case aside)")
        ascending([o for o, _ in self.titles], "|TTLBTREE")

    # -- internal files and B+ trees

    def internal(self, at):
        reserved, used = u32(self.data, at), u32(self.data, at + 4)
        need(reserved == used + 9, "internal file at %d: reserved %d, used %d" % (at, reserved, used))
        need(at + reserved <= len(self.data), "internal file at %d runs past the end" % at)
        return self.data[at + 9:at + 9 + used]

    def file(self, name):
        return self.internal(self.files[name])

    @staticmethod
    def directory_entry(page, at):
        name, at = cstring(page, at)
        return (name.decode("ascii"), u32(page, at)), at + 4

    @staticmethod
    def context_entry(page, at):
        return struct.unpack_from("<iI", page, at), at + 8

    @staticmethod
    def title_entry(page, at):
        offset = u32(page, at)
        title, at = cstring(page, at + 4)
        return (offset, title.decode("cp1252")), at

    @staticmethod
    def keyword_entry(page, at):
        word, at = cstring(page, at)
        return (word.decode("cp1252"), u16(page, at), u32(page, at + 2)), at + 6

    def tree_entries(self, tree, read_entry):
        """Every leaf entry in stored order: down the first children to the
        first leaf, then along the leaves' next links, as winhlp32 lists."""
        need(u16(tree, 0) == 0x293B, "B+ tree magic")
        page_size, root, total, levels, count = (u16(tree, 4), u16(tree, 26), u16(tree, 30),
                                                 u16(tree, 32), u32(tree, 34))
        need(levels >= 1 and root < total, "B+ tree levels/root")
        need(len(tree) == 38 + total * page_size, "B+ tree size")
        page = lambda n: tree[38 + n * page_size:38 + (n + 1) * page_size]
        n = root
        for _ in range(levels - 1):
            n = u16(page(n), 4)
        entries, previous, seen = [], 0xFFFF, 0
        self.leaves = []    # (page, number of its first entry), for |KWMAP
        while n != 0xFFFF:
            p = page(n)
            self.leaves.append((n, len(entries)))
            need(u16(p, 4) == previous, "leaf %d: previous page %d" % (n, u16(p, 4)))
            at = 8
            for _ in range(u16(p, 2)):
                entry, at = read_entry(p, at)
                entries.append(entry)
            need(u16(p, 0) == page_size - at, "leaf %d: free space" % n)
            previous, n = n, u16(p, 6)
            seen += 1
            need(seen <= total, "leaf chain loops")
        need(len(entries) == count, "B+ tree entry count")
        key_at = self.key_reader(tree[6:22])
        self.check_index(page, root, levels, key_at)
        return entries

    @staticmethod
    def key_reader(structure):
        """The trees' keys: a STRINGZ (names, keywords) or a DWORD (hashes,
        offsets), told by the first letter of the tree's structure string."""
        kind = structure[:1]
        need(kind in (b"z", b"F", b"L"), "unknown B+ tree structure %r" % structure)
        if kind == b"L":
            return lambda page, at: (page[at:at + 4], at + 4)
        return lambda page, at: (page[at:page.index(b"\0", at) + 1], page.index(b"\0", at) + 1)

    def check_index(self, page, n, level, key_at):
        """Returns the first key under page n, checking on the way that every
        index key is the first key of the page it leads to (a lookup from the
        root then lands in the right leaf)."""
        p = page(n)
        if level == 1:
            return key_at(p, 8)[0]
        first = self.check_index(page, u16(p, 4), level - 1, key_at)
        at = 6
        for _ in range(u16(p, 2)):
            key, at = key_at(p, at)
            need(self.check_index(page, u16(p, at), level - 1, key_at) == key, "index key of page %d" % n)
            at += 2
        return first

    # -- |SYSTEM and |FONT

    def read_system(self):
        s = self.file("|SYSTEM")
        magic, minor, major, _, flags = struct.unpack_from("<HHHIH", s, 0)
        need((magic, minor, major, flags) == (0x036C, 21, 1, 0), "|SYSTEM header of an uncompressed 3.1 file")
        self.title, self.contents, self.windows = None, None, {}
        at = 12
        while at < len(s):
            kind, size = u16(s, at), u16(s, at + 2)
            body = s[at + 4:at + 4 + size]
            need(len(body) == size, "|SYSTEM record runs past the end")
            if kind == 1:
                need(self.windows == {}, "TITLE after a WINDOW")
                self.title = cstring(body, 0)[0].decode("cp1252")
            elif kind == 3:
                need(size == 4, "CONTENTS record size")
                self.contents = u32(body, 0)
            elif kind == 6:
                need(size == 90, "WINDOW record size")
                flags = u16(body, 0)
                name = body[12:21].split(b"\0")[0].decode("cp1252")
                caption = body[21:72].split(b"\0")[0].decode("cp1252") if flags & 0x04 else None
                need(body[20] == 0 and body[71] == 0, "WINDOW name or caption without its NUL")
                self.windows[name.lower()] = caption
            at += 4 + size

    def read_fonts(self):
        f = self.file("|FONT")
        faces, count, faces_at, descriptors_at = struct.unpack_from("<4H", f, 0)
        need(faces >= 1 and count >= 1, "|FONT needs a face and a descriptor")
        slot = (descriptors_at - faces_at) // faces
        self.faces = [f[faces_at + i * slot:faces_at + (i + 1) * slot].split(b"\0")[0].decode() for i in range(faces)]
        self.fonts = []     # (bold, half-points, face)
        for i in range(count):
            attributes, half_points, family, face = struct.unpack_from("<BBBH", f, descriptors_at + 11 * i)
            need(1 <= family <= 5 and face < faces, "font %d" % i)
            self.fonts.append((bool(attributes & 1), half_points, self.faces[face]))

    # -- |TOPIC

    def record_at(self, topic, pos):
        block, offset = pos >> 14, pos & 0x3FFF
        need(12 <= offset < 4096, "TOPICPOS %x outside a block's data" % pos)
        start = block * 4096 + offset
        size, len2, prev, nxt, len1 = struct.unpack_from("<5I", topic, start)
        need(offset + size <= 4096, "record at %x crosses its block" % pos)
        need(len2 == size - len1, "record at %x: DataLen2 is not BlockSize - DataLen1" % pos)
        rtype = topic[start + 20]
        return rtype, topic[start + 21:start + len1], topic[start + len1:start + size], prev, nxt

    def read_topics(self):
        """Follows the records from TOPICPOS 12, keeping the character count
        that TOPICOFFSETs are made of (text records count their DataLen2)."""
        topic = self.file("|TOPIC")
        need(len(topic) % 4096 == 0, "|TOPIC is not whole blocks")
        self.topics, pos, prev_pos, block, chars = [], 12, 0xFFFFFFFF, 0, 0
        while pos != 0xFFFFFFFF:
            if pos >> 14 != block:
                need(pos >> 14 > block, "records go back to an earlier block")
                block, chars = pos >> 14, 0
            rtype, data1, data2, prev, nxt = self.record_at(topic, pos)
            need(prev == prev_pos, "record at %x: wrong previous link" % pos)
            if rtype == 0x02:
                number = u32(data1, 12)
                need(number == len(self.topics), "topic numbers run 0, 1, 2...")
                self.topics.append(Topic(data2.decode("cp1252"), (block << 15) + chars))
            else:
                need(rtype == 0x20, "record type %x" % rtype)
                need(self.topics, "the first record is not a topic header")
                self.topics[-1].paragraphs.append(self.paragraph(data1, data2))
                chars += len(data2)
            self.topics[-1].blocks.add(block)
            prev_pos, pos = pos, nxt
        need(self.topics and self.topics[-1].title == "" and not self.topics[-1].paragraphs,
             "the topics end with an empty topic header")
        self.topics.pop()

    def paragraph(self, data1, data2):
        _, at = compressed(data1, 0, short=False)      # TopicSize
        length, at = compressed(data1, at, short=True)
        need(length == len(data2), "TopicLength is not the text's size")
        at += 4
        bits = u16(data1, at)
        need(bits & 0xE080 == 0, "paragraph bits %x" % bits)
        at += 2
        for bit in (0x0002, 0x0004, 0x0008, 0x0010, 0x0020, 0x0040):
            if bits & bit:
                value, after = compressed(data1, at, short=True)
                # Signed: biased by 64 in a byte, 16384 in a WORD.
                need(value >= (0x40 if after - at == 1 else 0x4000), "negative spacing or indent")
                at = after
        need(bits & 0x0301 == 0, "border, tabs or the unknown field")
        para = Paragraph()
        strings = data2.split(b"\0")
        need(strings[-1] == b"", "text without its closing NUL")
        strings.pop()
        font, jump = None, None
        for n, raw in enumerate(strings):
            if raw:
                need(font is not None, "text before any font")
                para.runs.append((raw.decode("cp1252"), font, jump))
            need(at < len(data1), "fewer commands than strings")
            code = data1[at]
            if code == 0x80:
                font = u16(data1, at + 1)
                need(font < len(self.fonts), "font %d does not exist" % font)
                at += 3
            elif code in (0xE2, 0xE3, 0xE6, 0xE7):
                jump = struct.unpack_from("<i", data1, at + 1)[0]
                at += 5
            elif code == 0x89:
                need(jump is not None, "end of a hotspot that never began")
                jump = None
                at += 1
            elif code in (0x81, 0x82, 0x83):
                need(jump is None, "a hotspot runs over a line or paragraph end")
                at += 1
            elif code == 0xFF:
                need(n == len(strings) - 1, "end of record before the last string")
                at += 1
            else:
                raise HelpFileError("unknown command %x" % code)
        need(at == len(data1) and data1[-1] == 0xFF, "commands do not end with the record")
        return para

    # -- keywords and look-ups

    def read_keywords(self):
        if "|KWBTREE" not in self.files:
            return []
        need("|KWDATA" in self.files, "|KWBTREE without |KWDATA")
        kwdata = self.file("|KWDATA")
        found = []
        for word, count, at in self.tree_entries(self.file("|KWBTREE"), self.keyword_entry):
            need(at + 4 * count <= len(kwdata), "keyword %r points past |KWDATA" % word)
            found.append((word, [u32(kwdata, at + 4 * i) for i in range(count)]))
        kwmap = self.file("|KWMAP")
        need(u16(kwmap, 0) == len(self.leaves) and len(kwmap) == 2 + 6 * len(self.leaves), "|KWMAP size")
        need([struct.unpack_from("<IH", kwmap, 2 + 6 * i)[::-1] for i in range(len(self.leaves))] == self.leaves,
             "|KWMAP does not list the keyword pages")
        return found

    def topic_at(self, offset):
        """The topic holding a TOPICOFFSET: the last one starting at or before it."""
        candidates = [t for t in self.topics if t.offset <= offset]
        need(candidates, "offset %x before the first topic" % offset)
        return candidates[-1]

    def topic_for_context(self, name):
        return self.topic_at(self.contexts[winhelp_hash(name)])

    def partial_key(self, text):
        """What WinHelp does with HELP_PARTIALKEY: the topic when exactly one
        topic has that keyword (letter case aside), else the index opened at
        the first keyword beginning with the text (None: the index as it is)."""
        want = text.lower()
        exact = [offsets for word, offsets in self.keywords if word.lower() == want]
        if want and len(exact) == 1 and len(exact[0]) == 1:
            return self.topic_at(exact[0][0])
        return None


def main(argv):
    """--texts FILE OUT"""
    with open(argv[2], "rb") as f:
        hlp = HelpFile(f.read())
    parts = [t.text for t in hlp.topics] + ["\n".join(w for w, _ in hlp.keywords)]
    with open(argv[3], "wb") as f:
        f.write("\f".join(parts).encode("cp1252"))


if __name__ == "__main__":
    main(sys.argv)
