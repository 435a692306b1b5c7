"""Widths of a TrueType font's characters 32 to 255 of the WinAnsi encoding, in thousandths of the
size: one a line, "-" where the font has none. Read from the font's own tables."""
import struct
import sys


def tables(data):
    found = {}
    for i in range(struct.unpack('>H', data[4:6])[0]):
        tag, _, offset, _ = struct.unpack('>4sLLL', data[12 + 16 * i:28 + 16 * i])
        found[tag.decode()] = offset
    return found


class Font:
    def __init__(self, path):
        self.data = open(path, 'rb').read()
        self.tables = tables(self.data)
        self.em = self.word(self.tables['head'] + 18)
        self.metrics = self.word(self.tables['hhea'] + 34)
        cmap = self.tables['cmap']
        for i in range(self.word(cmap + 2)):
            platform, encoding, offset = struct.unpack('>HHL', self.data[cmap + 4 + 8 * i:cmap + 12 + 8 * i])
            if (platform, encoding) == (3, 1):
                self.map = cmap + offset

    def word(self, at):
        return struct.unpack('>H', self.data[at:at + 2])[0]

    def glyph(self, letter):
        at, twice = self.map, self.word(self.map + 6)
        for segment in range(0, twice, 2):
            if letter > self.word(at + 14 + segment):
                continue
            start = self.word(at + 16 + twice + segment)
            delta = self.word(at + 16 + 2 * twice + segment)
            place = at + 16 + 3 * twice + segment
            if letter < start:
                return 0
            if self.word(place) == 0:
                return (letter + delta) & 0xFFFF
            glyph = self.word(place + self.word(place) + 2 * (letter - start))
            return (glyph + delta) & 0xFFFF if glyph else 0
        return 0

    def width(self, glyph):
        at = self.tables['hmtx'] + 4 * min(glyph, self.metrics - 1)
        return int(self.word(at) * 1000 / self.em + 0.5)


font = Font(sys.argv[1])
for code in range(32, 256):
    try:
        glyph = 0 if code == 127 else font.glyph(ord(bytes([code]).decode('cp1252')))
    except UnicodeDecodeError:
        glyph = 0
    print(font.width(glyph) if glyph else '-')
