"""Reads C++ just far enough to find code in it: tokens, what each brace begins, statements.

It relies on the format of the tree: a binary operator has a space or a line end on both sides.
"""
import re

TOKEN = re.compile(
    r"""(?P<ignored>//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:\\\n|[^\n])*)
    |(?P<string>(?:u8|[uUL])?(?:R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"))
    |(?P<number>\d(?:[\w.]|'\w)*)
    |(?P<character>'(?:\\.|[^'\\\n])+')
    |(?P<word>[A-Za-z_]\w*)
    |(?P<operator><=>|->\*|<<=|>>=|\.\.\.|::|->|\+\+|--|<<|>>|&&|\|\||[-+*/%&|^<>=!]=|\S)""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)
OPENERS, CLOSERS = ("(", "[", "{"), (")", "]", "}")

# What an opening brace begins: a namespace, a class, enumerators, statements, or a list of values.
SCOPE, TYPE, ENUM, CODE, VALUES = "scope", "type", "enum", "code", "values"

# A brace after one of these begins statements.
BEFORE_CODE = (")", "]", "else", "do", "try", "const", "noexcept", "override", "final", "mutable")
# A brace after one of these does so if it is directly inside a block of statements.
BETWEEN_STATEMENTS = (";", "{", "}", ":")

TYPE_WORDS = ("class", "struct", "union")
DECLARATION_WORDS = (*TYPE_WORDS, "const", "constexpr", "auto", "static", "using", "typedef", "char",
                     "int", "bool", "unsigned", "double", "namespace", "static_assert", "enum")
STATEMENT_WORDS = ("return", "delete", "throw", "case", "goto", "else", "new", "co_return")

FUNCTION_NAME = re.compile(r"((?:\w+(?: < [^()=]*? >)? :: )*(?:operator\b[^(]*|(?:~ )?\w+)) \(")
TYPE_NAME = re.compile(r"(?:class|struct|union) (\w+)")
VARIABLE_NAME = re.compile(r"(\w+)(?: < [^=]* >)?(?: \[.*)?(?: =|$)")


class Token:
    """One token. `opener` is the index of the innermost bracket around it, -1 outside of all. A
    bracket has the index of its `partner`; an opening brace has a `kind`. `function` is the name
    of what encloses the token, with its classes."""

    def __init__(self, match):
        self.text = match.group()
        self.type = "string" if match.lastgroup == "mark" else match.lastgroup
        self.start, self.end = match.span()
        self.opener = self.partner = -1
        self.kind = self.function = ""

    def is_opener(self):
        return self.type == "operator" and self.text in OPENERS

    def is_closer(self):
        return self.type == "operator" and self.text in CLOSERS


class Source:
    """A file's text and its tokens, without comments and preprocessor lines."""

    def __init__(self, text):
        self.text = text
        self.tokens = [Token(match) for match in TOKEN.finditer(text) if not match["ignored"]]
        self._pair_brackets()
        for index, token in enumerate(self.tokens):
            self._place(index, token)

    def line_of(self, position):
        """The number of the line that holds a position, from 1."""
        return self.text.count("\n", 0, position) + 1

    def line_text(self, position):
        """The line that holds a position, without the white space at its ends."""
        start = self.text.rfind("\n", 0, position) + 1
        end = self.text.find("\n", position)
        return self.text[start:end if end >= 0 else len(self.text)].strip()

    def follows_space(self, token):
        return self.text[token.start - 1:token.start].isspace()

    def precedes_space(self, token):
        return self.text[token.end:token.end + 1].isspace()

    def kind_around(self, index, skipped=()):
        """The kind of the innermost brace around a token, without those of the `skipped` kinds."""
        brace = self._brace_around(index)
        while brace >= 0 and self.tokens[brace].kind in skipped:
            brace = self._brace_around(brace)
        return self.tokens[brace].kind if brace >= 0 else SCOPE

    def is_in_code(self, index):
        """Whether a token belongs to a statement."""
        return self.kind_around(index, (VALUES,)) == CODE

    def is_statement_start(self, index):
        """Whether a statement begins with this token."""
        token, before = self.tokens[index], self.tokens[index - 1]
        if token.opener < 0 or self.tokens[token.opener].kind != CODE:
            return False
        if before.text == ":":  # after a label, not in a conditional expression
            return not self.follows_space(before)
        if before.text == "}":
            return self.tokens[before.partner].kind == CODE
        return before.text in (";", "{", "else", "do") or self.closes_condition(index - 1)

    def closes_condition(self, index):
        """Whether this parenthesis ends the condition of an if, for or while."""
        token = self.tokens[index]
        if token.text != ")" or token.partner < 1:
            return False
        return self.tokens[token.partner - 1].text in ("if", "for", "while", "constexpr")

    def find(self, index, texts):
        """The index of the first of these tokens from `index` on in the same brackets, or -1."""
        opener = self.tokens[index].opener
        while index < len(self.tokens):
            token = self.tokens[index]
            if token.opener == opener and token.text in texts:
                return index
            if token.opener < opener:
                return -1
            index = max(index, token.partner) + 1
        return -1

    def declarator_end(self, index):
        """The index after the name that the statement here declares; `index` if it declares none."""
        end = self.find(index, ("=", "(", "{", ";", ":"))
        return end if end > index and self._declares(index, end) else index

    def _declares(self, first, end):
        tokens = self.tokens[first:end]
        if tokens[0].text in STATEMENT_WORDS:
            return False
        if tokens[0].text in DECLARATION_WORDS:
            return True
        for left, right in zip(tokens, tokens[1:]):
            if right.type == "word" and (left.type == "word" or (
                    left.text in (">", ">>", "*", "&", "&&") and self.precedes_space(left)
                    and not self.follows_space(left))):
                return True
        return False

    def _pair_brackets(self):
        stack = []
        for index, token in enumerate(self.tokens):
            if token.is_closer() and stack:
                token.partner = stack.pop()
                self.tokens[token.partner].partner = index
            token.opener = stack[-1] if stack else -1
            if token.is_opener():
                stack.append(index)

    def _brace_around(self, index):
        opener = self.tokens[index].opener
        while opener >= 0 and self.tokens[opener].text != "{":
            opener = self.tokens[opener].opener
        return opener

    def _place(self, index, token):
        brace = self._brace_around(index)
        if brace >= 0:
            token.function = self.tokens[brace].function
        if token.text != "{" or token.type != "operator":
            return
        head = self._head(index)
        token.kind = self._kind(index, head)
        if self.kind_around(index) in (SCOPE, TYPE) and token.kind != SCOPE:
            token.function = "::".join(name for name in (token.function, declared_name(head)) if name)

    def _kind(self, index, head):
        opener, before = self.tokens[index].opener, self.tokens[index - 1] if index else None
        if head[:1] and head[0] in TYPE_WORDS:
            return TYPE
        if head[:1] == ["enum"]:
            return ENUM
        if "namespace" in head or before.type == "string" and self.tokens[index - 2].text == "extern":
            return SCOPE
        if before.text in BEFORE_CODE or "->" in head[-4:] and before.type == "word":
            return CODE
        is_between = opener >= 0 and self.tokens[opener].kind == CODE
        return CODE if is_between and before.text in BETWEEN_STATEMENTS else VALUES

    def _head(self, index):
        """The words of the declaration or statement that a brace belongs to, without prefixes."""
        opener, first = self.tokens[index].opener, index
        while first - 1 > opener:
            before = self.tokens[first - 1]
            if before.text == ";" or before.text == "}" and (
                    self.tokens[before.partner].kind != VALUES):
                break
            first = before.partner if before.is_closer() else first - 1
        return without_prefix([token.text for token in self.tokens[first:index]])


def without_prefix(words):
    """The words of a declaration after access specifiers, `template <...>`, `inline` and so on."""
    while words:
        if words[0] in ("public", "protected", "private"):
            words = words[2:]
        elif words[0] in ("typedef", "friend", "inline", "constexpr", "static"):
            words = words[1:]
        elif words[0] == "template":
            depth = 0
            for end, word in enumerate(words):
                depth += {"<": 1, ">": -1, ">>": -2}.get(word, 0)
                if end > 0 and depth == 0:
                    break
            words = words[end + 1:]
        else:
            break
    return words


def declared_name(words):
    """The name of the function, type or variable that the words before a brace declare."""
    text = " ".join(words)
    if words and words[0] in TYPE_WORDS:
        match = TYPE_NAME.match(text)
    else:
        match = FUNCTION_NAME.search(text)
        if match is None or " = " in text[:match.start()]:
            match = VARIABLE_NAME.search(text)
    return re.sub(r" |<[^>]*>", "", match[1]) if match else ""
