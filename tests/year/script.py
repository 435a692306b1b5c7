"""The commands of a script for the player."""


def quoted(text):
    return '"%s"' % text.replace("\\", "\\\\").replace('"', '\\"')


class Script:
    """Commands for the player, in parts: the program is started anew for each."""

    def __init__(self):
        self.lines = []
        self.parts = [self.lines]

    def new_part(self):
        self.lines = []
        self.parts.append(self.lines)

    def __call__(self, *lines):
        self.lines += lines

    def note(self, text):
        self.lines += ["", "# " + text]

    def type(self, text, keys=""):
        self("type " + quoted(text))
        self.keys(keys)

    def fill(self, control, text, keys=""):
        self("fill %s %s" % (control, quoted(text)))
        self.keys(keys)

    def keys(self, keys):
        if keys:
            self("key " + keys)

    def expect(self, what, text):
        self("expect %s %s" % (what, quoted(text)))

    def sql(self, statement, answer):
        self('expect sql data %s %s' % (quoted(statement), quoted(answer)))
