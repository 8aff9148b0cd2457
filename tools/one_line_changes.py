"""The one-line changes that a C++ source in the layout of this tree allows; tools/mutants tries them."""

import hashlib
import re
from collections import namedtuple

# `start` and `end` are offsets in the file; the text between them becomes `new`.
Mutant = namedtuple('Mutant', 'id path line column kind start end old new')
Token = namedtuple('Token', 'kind text start end')

TOKEN = re.compile(r'''
    (?P<skip>    \s+ | //[^\n]* | /\*.*?\*/ | \#(?:\\\n|[^\n])* )
  | (?P<string>  (?:u8|[uUL])?(?: R"(?P<mark>[^(]*)\(.*?\)(?P=mark)" | "(?:\\.|[^"\\])*" | '(?:\\.|[^'\\])*' ) )
  | (?P<number>  \.?\d(?:[eEpP][+-]|'\w|[\w.])* )
  | (?P<name>    [A-Za-z_]\w* )
  | (?P<sign>    <<=|>>=|<=>|->\*|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|. )
''', re.VERBOSE | re.DOTALL)

# Signs between two operands. The layout of the sources tells them from the brackets of templates and from
# pointers: only they have a blank on each side.
SWAPS = {
    'comparison': {'<': '<=', '<=': '<', '>': '>=', '>=': '>', '==': '!=', '!=': '=='},
    'logic': {'&&': '||', '||': '&&'},
    'arithmetic': {'+': '-', '-': '+', '*': '/', '/': '*', '%': '*', '<<': '>>', '>>': '<<', '&': '|', '|': '&',
                   '^': '|', '+=': '-=', '-=': '+=', '*=': '/=', '/=': '*=', '%=': '*=', '<<=': '>>=',
                   '>>=': '<<=', '&=': '|=', '|=': '&=', '^=': '|='},
}
OPPOSITES = {'true': 'false', 'false': 'true', 'TRUE': 'FALSE', 'FALSE': 'TRUE'}
STEPS = {'++': '--', '--': '++'}
CLOSING = {'(': ')', '[': ']', '{': '}'}

# A statement with names as "a", and brackets without what is in them. Two names in a row make a declaration.
OPERAND = r'(?:::)?a(?:(?:::|\.|->)a|\(\)|\[\])*'
CALL = re.compile(OPERAND + r'(?<=\(\))')
ASSIGNMENT = re.compile(rf'\**{OPERAND}(?:=|[-+*/%&|^]=|<<=|>>=).*|(?:\+\+|--){OPERAND}|{OPERAND}(?:\+\+|--)')
NO_EXPRESSION = {'return', 'throw', 'goto', 'using', 'case', 'default', 'if', 'while', 'for', 'do', 'switch',
                 'break', 'continue', 'else', 'static_assert', 'typedef', 'template', 'delete', 'friend'}


class Source:
    """The changes that one file allows."""

    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.tokens = []
        for match in TOKEN.finditer(text):
            kind = 'string' if match.lastgroup == 'mark' else match.lastgroup
            if kind != 'skip':
                self.tokens.append(Token(kind, match.group(), match.start(), match.end()))
        self.find_brackets()
        self.changes = {}

    def find_brackets(self):
        """`partner` of each bracket; `inside`: the innermost open bracket before each token."""
        self.partner, self.inside, open_ones = {}, [], []
        for index, token in enumerate(self.tokens):
            if open_ones and token.kind == 'sign' and token.text == CLOSING[self.tokens[open_ones[-1]].text]:
                self.partner[open_ones[-1]] = index
                self.partner[index] = open_ones.pop()
            self.inside.append(open_ones[-1] if open_ones else None)
            if token.kind == 'sign' and token.text in CLOSING:
                open_ones.append(index)

    def add(self, kind, start, end, new):
        self.changes.setdefault((start, end, new), kind)

    def mutants(self):
        index = 0
        while index < len(self.tokens):
            if self.tokens[index].text == 'static_assert':
                index = self.partner.get(index + 1, index)
            self.change_token(index)
            self.change_condition(index)
            self.change_return(index)
            self.change_statement(index)
            index += 1
        return [self.mutant(kind, *change) for change, kind in sorted(self.changes.items())]

    def mutant(self, kind, start, end, new):
        line = self.text.count('\n', 0, start) + 1
        column = start - self.text.rfind('\n', 0, start)
        key = f'{self.path}:{line}:{column}:{end - start}:{new}'
        return Mutant(hashlib.sha256(key.encode()).hexdigest()[:8], self.path, line, column, kind, start, end,
                      self.text[start:end], new)

    def change_token(self, index):
        kind, text, start, end = self.tokens[index]
        if kind == 'number':
            for new in neighbours(text):
                self.add('number', start, end, new)
        elif kind == 'name' and text in OPPOSITES:
            self.add('true and false', start, end, OPPOSITES[text])
        elif kind == 'name' and text.startswith('ERROR_'):
            self.add('code', start, end, 'ERROR_GEN_FAILURE' if text != 'ERROR_GEN_FAILURE' else 'ERROR_CRC')
        elif kind == 'sign' and text == '!':
            self.add('condition', start, end, '')
        elif kind == 'sign' and text in STEPS:
            self.add('arithmetic', start, end, STEPS[text])
        elif kind == 'sign' and self.text[start - 1].isspace() and self.text[end:end + 1].isspace():
            for swap_kind, swaps in SWAPS.items():
                if text in swaps:
                    self.add(swap_kind, start, end, swaps[text])

    def change_condition(self, index):
        """Negates it, where that is not what a change of its only sign does."""
        if self.tokens[index].text not in ('if', 'while') or index + 1 not in self.partner:
            return
        first, last = index + 2, self.partner[index + 1]
        signs = {token.text for token in self.tokens[first:last]}
        if '=' not in signs and (signs & {'&&', '||'} or not signs & {'==', '!=', '!'}):
            start, end = self.tokens[first].start, self.tokens[last].start
            self.add('condition', start, end, f'!({self.text[start:end]})')

    def change_return(self, index):
        if self.tokens[index].text != 'return':
            return
        shape, last = self.statement(index + 1)
        if shape and re.fullmatch(OPERAND, shape) and self.tokens[index + 1].text not in OPPOSITES:
            start, end = self.tokens[index + 1].start, self.tokens[last].start
            code = self.tokens[index + 1].text.startswith('ERROR_')
            self.add('returned value', start, end, '0' if code else '{}')

    def change_statement(self, index):
        """Drops a case label, a call or an assignment."""
        token = self.tokens[index]
        if token.text == 'case':
            last = index + 1
            while self.tokens[last].text != ':':
                last += 1
            self.add('case', token.start, self.tokens[last].end, '')
        elif self.begins_statement(index):
            shape, last = self.statement(index)
            if shape and CALL.fullmatch(shape):
                self.add('call', token.start, self.tokens[last].start, '')
            elif shape and ASSIGNMENT.fullmatch(shape):
                self.add('assignment', token.start, self.tokens[last].start, '')

    def begins_statement(self, index):
        if index == 0 or self.inside[index] is None or not self.is_body(self.inside[index]):
            return False
        before = self.tokens[index - 1].text
        if before == ')':
            return self.tokens[self.partner.get(index - 1, 0) - 1].text in ('if', 'while', 'for', 'constexpr')
        return before in (';', '{', '}', 'else', 'do') or (before == ':' and self.ends_label(index - 1))

    def ends_label(self, index):
        """Whether a colon is that of a case, rather than of a choice between two values."""
        while index > 0 and self.tokens[index].text not in (';', '{', '}', '?'):
            if self.tokens[index].text in ('case', 'default'):
                return True
            index -= 1
        return False

    def is_body(self, bracket):
        """Whether a bracket is a brace with statements in it, rather than with declarations."""
        if self.tokens[bracket].text != '{':
            return False
        index = bracket - 1
        while index >= 0 and self.tokens[index].text not in (';', '{', '}', '(', ')'):
            if self.tokens[index].text in ('namespace', 'class', 'struct', 'union', 'enum', 'extern', '='):
                return False
            index -= 1
        return True

    def statement(self, index):
        """The shape of the expression statement at `index`, and where its semicolon is; or ('', 0)."""
        shape = []
        while index < len(self.tokens):
            kind, text, start, _ = self.tokens[index]
            if kind == 'sign' and text == ';':
                return ''.join(shape), index
            if text in NO_EXPRESSION or (kind == 'sign' and text in ')]}'):
                break
            if kind == 'sign' and text in CLOSING:
                if index not in self.partner or (text == '{' and shape[-1:] not in (['='], ['a'])):
                    break
                shape.append(text + CLOSING[text])
                index = self.partner[index]
            elif kind == 'sign' and text == '<' and not self.text[start - 1].isspace():
                index = self.template_end(index)
            else:
                shape.append({'name': 'a', 'number': '1', 'string': '1'}.get(kind, text))
            index += 1
        return '', 0

    def template_end(self, index):
        depth = 0
        for at in range(index, len(self.tokens)):
            text = self.tokens[at].text
            depth += (text == '<') - (text == '>') - 2 * (text == '>>')
            if depth <= 0:
                return at
        return len(self.tokens)


def neighbours(number):
    """The whole numbers beside one, written as it is."""
    match = re.fullmatch(r"(0[xX](?=.)|0[bB](?=.)|0(?=\d)|)([\da-fA-F']+?)([uUlLzZ]*)", number)
    if not match:
        return []
    prefix, digits, suffix = match.groups()
    base, layout = {'0x': (16, 'X'), '0b': (2, 'b'), '0': (8, 'o')}.get(prefix.lower(), (10, 'd'))
    value = int(digits.replace("'", ''), base)
    return [prefix + format(near, layout) + suffix for near in (value - 1, value + 1) if near >= 0]
