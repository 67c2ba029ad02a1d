"""Makes mutants: the small faults that a programmer could have put into a source."""
import dataclasses
import hashlib
import re

from mutation import cpp

SWAPS = {
    "==": ("!=",), "!=": ("==",), "<": ("<=", ">="), ">": (">=", "<="), "<=": ("<", ">"),
    ">=": (">", "<"), "&&": ("||",), "||": ("&&",), "+": ("-",), "-": ("+",), "*": ("/",),
    "/": ("*",), "%": ("*",), "&": ("|",), "|": ("&",), ">>": ("<<",), "+=": ("-=",), "-=": ("+=",),
    "|=": ("&=",), "&=": ("|=",)}
STEPS = {"++": "--", "--": "++"}
WORDS = {"true": "false", "false": "true"}
NUMBER = re.compile(r"(0[xX][0-9a-fA-F']+|[0-9']+)([uUlLzZ]*)$")
# Calls whose effect no test can observe, and operators that execute nothing.
SKIPPED_CALLS = ("static_assert", "assert", "reserve", "shrink_to_fit", "noexcept", "alignas", "sizeof",
                 "decltype")
SAME_RETURNS = ("{", "0", "false", "true", "nullptr", "kNoError")


@dataclasses.dataclass(frozen=True)
class Mutant:
    """One change of one file. Its identity depends on the surrounding text, not on the line number."""
    folder: str
    file: str  # below the library's root
    line: int
    function: str
    source: str  # the line that changes
    change: str
    start: int
    end: int
    text: str  # what replaces the characters from `start` to `end`
    ident: str = ""


def mutants_of(folder, file, text, constants):
    """The mutants of one file, in its order. `constants`: each constant's substitute."""
    source = cpp.Source(text)
    found = []
    for start, end, change, new in changes(source, constants):
        token = next(each for each in source.tokens if each.end > start)
        found.append(Mutant(folder, file, source.line_of(start), token.function,
                            source.line_text(start), change, start, end, new))
    return [dataclasses.replace(mutant, ident=ident, change=change)
            for mutant, (ident, change) in zip(found, identities(found))]


def identities(mutants):
    """Yields the identity and the change of each mutant. Numbers equal changes of one line."""
    counts = {}
    for mutant in mutants:
        key = (mutant.file, mutant.line, mutant.change)
        nth = counts[key] = counts.get(key, 0) + 1
        change = mutant.change if nth == 1 else f"{mutant.change} #{nth}"
        place = (mutant.file, mutant.function, mutant.source, change)
        again = counts[place] = counts.get(place, 0) + 1
        yield digest(*place, again)[:10], change


def digest(*parts):
    return hashlib.sha256("\n".join(map(str, parts)).encode()).hexdigest()


def changes(source, constants):
    """Yields (start, end, change, new text) for every change of a source."""
    skipped = skipped_tokens(source)
    for index, token in enumerate(source.tokens):
        if index in skipped:
            continue
        if source.is_in_code(index):
            yield from operator_changes(source, index)
            yield from statement_changes(source, index)
            yield from condition_changes(source, index)
        if source.is_in_code(index) or source.kind_around(index) == cpp.VALUES:
            yield from value_changes(source, index, constants)


def skipped_tokens(source):
    """The indices of tokens in declarators, and in calls whose effect no test can see."""
    skipped = set()
    for index, token in enumerate(source.tokens):
        if source.is_statement_start(index):
            skipped.update(range(index, source.declarator_end(index)))
        if token.text in SKIPPED_CALLS and source.tokens[index + 1].text == "(":
            skipped.update(range(index, source.tokens[index + 1].partner + 1))
        if token.text == "requires" and source.find(index, ("{",)) >= 0:
            skipped.update(range(index, source.tokens[source.find(index, ("{",))].partner))
        if token.text == "template" and source.tokens[index + 1].text == "<":
            skipped.update(range(index, source.find(index, (">", ";")) + 1))
    return skipped


def replaced(token, new):
    return token.start, token.end, f"{token.text} -> {new}", new


def operator_changes(source, index):
    token, before, after = source.tokens[index], source.tokens[index - 1], source.tokens[index + 1]
    if token.type != "operator" or before.text == "operator":
        return
    if token.text in STEPS:
        yield replaced(token, STEPS[token.text])
    elif token.text == "!":
        yield token.start, token.end, f"!{after.text} -> {after.text}", ""
    elif source.follows_space(token) and source.precedes_space(token):
        for new in SWAPS.get(token.text, ()):
            yield replaced(token, new)
    elif is_sign(source, index):
        for new in (after.text, "0"):
            yield token.start, after.end, f"-{after.text} -> {new}", new


def is_sign(source, index):
    """Whether this token is the minus sign of a number."""
    token, after = source.tokens[index], source.tokens[index + 1]
    return token.text == "-" and after.type == "number" and not source.precedes_space(token)


def value_changes(source, index, constants):
    token = source.tokens[index]
    if token.type == "number" and not is_sign(source, index - 1):
        for new in other_numbers(token.text):
            yield replaced(token, new)
    elif token.text in WORDS:
        yield replaced(token, WORDS[token.text])
    elif token.type == "word":
        name = token.text
        if index > 1 and source.tokens[index - 1].text == "::":
            name = f"{source.tokens[index - 2].text}::{name}"
        if name in constants:
            yield replaced(token, constants[name])


def other_numbers(text):
    match = NUMBER.match(text)
    if not match:
        return
    value = int(match[1].replace("'", ""), 16 if match[1][:2] in ("0x", "0X") else 10)
    for new in (value + 1, value - 1):
        if new >= 0:
            yield f"{new}{match[2]}"


def statement_changes(source, index):
    """Removes a statement, or changes what it returns."""
    if not source.is_statement_start(index):
        return
    end = source.find(index, (";",))
    if end <= index or is_reservation(source, index, end):
        return
    first, last = source.tokens[index], source.tokens[end]
    if first.text == "return" and end > index + 1:
        if source.closes_condition(index - 1):
            yield first.start, last.start, "remove return", ""
        if end > index + 2 or source.tokens[index + 1].text not in SAME_RETURNS:
            value = source.text[source.tokens[index + 1].start:last.start]
            yield (source.tokens[index + 1].start, last.start,
                   f"return {short(value)} -> return {{}}", "{}")
    elif first.text in ("return", "break", "continue", "delete"):
        yield first.start, last.start, f"remove {first.text}", ""
    elif is_effect(source, index):
        yield (first.start, last.start,
               f"remove {short(source.text[first.start:last.start])}", "")


def is_reservation(source, first, end):
    return any(token.text in ("reserve", "shrink_to_fit", "static_assert")
               for token in source.tokens[first:end])


def is_effect(source, index):
    """Whether the statement is an assignment, a call or a step."""
    token = source.tokens[index]
    if source.declarator_end(index) != index:
        return False
    return token.text in ("*", "(", "++", "--", "::") or token.type == "word" and (
        token.text == "this" or token.text not in KEYWORDS)


COMPARISONS = ("==", "!=", "<", ">", "<=", ">=")
KEYWORDS = ("if", "else", "for", "while", "do", "switch", "case", "default", "try", "catch", "throw",
            "goto", "using", "template", "typename", "public", "private", "protected")


def condition_changes(source, index):
    """Negates the condition of an if or of a conditional expression, unless another change of the
    condition does the same."""
    token = source.tokens[index]
    if token.text == "if" and source.tokens[index + 1].text == "(":
        first, end = index + 2, source.tokens[index + 1].partner
        initialiser = source.find(first, (";",))
        if 0 <= initialiser < end:
            first = initialiser + 1
    elif token.text == "?":
        first, end = condition_start(source, index), index
    else:
        return
    if first >= end or is_negated_otherwise(source, first, end):
        return
    start, end = source.tokens[first].start, source.tokens[end - 1].end
    condition = source.text[start:end]
    yield start, end, f"negate {short(condition)}", f"!({condition})"


def is_negated_otherwise(source, first, end):
    """Whether a condition has no && or ||, and begins with a negation or contains a comparison."""
    if source.find(first, ("&&", "||")) in range(first, end):
        return False
    return source.tokens[first].text == "!" or source.find(first, COMPARISONS) in range(first, end)


def condition_start(source, index):
    """The first token of the condition before a question mark."""
    opener = source.tokens[index].opener
    while index - 1 > opener:
        before = source.tokens[index - 1]
        if before.text in ("return", "=", ",", ";", "?", ":", "{", "}", "+=", "<<"):
            if before.text != "}" or source.tokens[before.partner].kind == cpp.CODE:
                break
        index = before.partner if before.is_closer() else index - 1
    return index


def short(text):
    """A text in one line and at most 60 characters."""
    text = " ".join(text.split())
    return text if len(text) <= 60 else text[:57] + "..."


CONSTANT = re.compile(r"^inline constexpr ([\w:]+) (k\w+) = [-\w']+;")
ENUMERATION = re.compile(r"\benum(?: class)?(?: (\w+))?(?: : [\w:]+)? \{(.*?)\}", re.DOTALL)
ENUMERATOR = re.compile(r"^\s*(\w+)(?: = [^,]*)?,?", re.MULTILINE)


def constants_of(headers):
    """Maps each status constant and enumerator of the headers to the one declared after it, and the
    last to the first. An enumerator of an `enum class` has its type's name before it."""
    substitutes = {}
    for text in headers:
        for group in [*constant_groups(text), *enumerations(text)]:
            for (key, _), (_, substitute) in zip(group, group[1:] + group[:1]):
                if key != substitute and len(group) > 1:
                    substitutes[key] = substitute
    return substitutes


def constant_groups(text):
    """The constants of each type, as lists of (name, name)."""
    groups = {}
    for line in text.splitlines():
        match = CONSTANT.match(line)
        if match and match[1].endswith("Status") or match and "kConverted" in text:
            groups.setdefault(match[1], []).append((match[2], match[2]))
    return groups.values()


def enumerations(text):
    """The enumerators of each enumeration, as lists of (name with type, name)."""
    for match in ENUMERATION.finditer(re.sub(r"//[^\n]*", "", text)):
        names = [each for each in ENUMERATOR.findall(match[2]) if each]
        prefix = f"{match[1]}::" if match.group().startswith("enum class") else ""
        yield [(prefix + name, name) for name in names]
