"""The ways in which a source is changed: one function for each kind of expression or statement."""

import re

from clang.cindex import CursorKind as Kind
from clang.cindex import TypeKind

from mutants import Change, Found, Mutant, in_one_line, shortened
from syntax import FUNCTIONS

COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": None, "!=": None}
NEGATIONS = {"<": ">=", "<=": ">", ">": "<=", ">=": "<", "==": "!=", "!=": "=="}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "<<": ">>", ">>": "<<", "&": "|", "|": "&", "^": "&"}
INTEGERS = (TypeKind.INT, TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG,
            TypeKind.SHORT, TypeKind.USHORT, TypeKind.SCHAR, TypeKind.UCHAR, TypeKind.CHAR_S, TypeKind.CHAR_U)
# The standard library's and JUCE's: their arguments say the same in either order.
ORDERLESS = re.compile(r"\b(max|min|swap|jmax|jmin)\s*(<[^()]*>)?\s*\(")
LITERALS = (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL, Kind.CHARACTER_LITERAL, Kind.STRING_LITERAL,
            Kind.CXX_BOOL_LITERAL_EXPR, Kind.CXX_NULL_PTR_LITERAL_EXPR)
BODIES = (Kind.COMPOUND_STMT, Kind.IF_STMT, Kind.FOR_STMT, Kind.WHILE_STMT, Kind.DO_STMT, Kind.CXX_FOR_RANGE_STMT,
          Kind.CASE_STMT, Kind.DEFAULT_STMT)


class Finder:
    """Finds the mutants of one file."""

    def __init__(self, tree):
        self.tree, self.source = tree, tree.source
        self.found = Found()
        self.functions = ["the file"]
        self.relaxed, self.isConstant = None, False
        self.seen = set()

    def run(self):
        for node in self.tree.tops:
            self.visit(node)
        return self.found

    # ---- Helpers

    def add(self, operator, original, mutated, *changes):
        key = tuple((change.start, change.end, change.text, change.form) for change in changes)
        if key in self.seen:
            return
        self.seen.add(key)
        self.found.mutants.append(
            Mutant(self.source.name, self.source.line_of(changes[0].start), self.functions[-1], operator,
                   shortened(original), shortened(mutated) or "nothing", list(changes), self.isConstant,
                   self.relaxed))

    def replace(self, operator, node, text, form="value"):
        text = in_one_line(text)
        self.add(operator, node.text(self.source), text, Change(node.start, node.end, text, form))

    def core(self, node):
        """Without the casts and temporaries that the compiler puts around an expression, and without brackets."""
        while node.kind in (Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR):
            children = self.tree.children(node)
            if len(children) != 1:
                break
            node = children[0]
        return node

    def text(self, node):
        return in_one_line(node.text(self.source))

    def between(self, first, second):
        return in_one_line(self.source.text[first.end:second.start])

    def operator_of(self, node):
        parts = self.tree.children(node)
        return self.between(*parts) if len(parts) == 2 else ""

    @staticmethod
    def type_of(node):
        return node.cursor.type.get_canonical()

    def is_operator_call(self, node):
        called = node.cursor.referenced
        return called is not None and called.spelling.startswith("operator")

    def is_constructor_call(self, node):
        called = node.cursor.referenced
        return called is not None and called.kind == Kind.CONSTRUCTOR

    def with_semicolon(self, node):
        rest = re.match(r"\s*;", self.source.text[node.end:])
        return node.end + rest.end() if rest else None

    # ---- The walk

    def visit(self, node):
        if node.kind in (Kind.STATIC_ASSERT, Kind.CXX_UNARY_EXPR, Kind.TYPE_REF, Kind.UNEXPOSED_ATTR):
            return
        if node.kind in FUNCTIONS or node.kind == Kind.VAR_DECL:
            return self.visit_declaration(node)
        handler = getattr(self, "on_" + node.kind.name.lower(), None)
        if handler:
            handler(node)
        if node.kind in BODIES:
            self.statement_bodies(node)
        self.visit_all(self.children_to_visit(node))

    def visit_all(self, nodes):
        for child in nodes:
            self.visit(child)

    def children_to_visit(self, node):
        children = self.tree.children(node)
        name_at = node.cursor.location.offset
        if node.kind in (Kind.DECL_REF_EXPR, Kind.MEMBER_REF_EXPR):  # Arguments of a template stand after the name.
            return [child for child in children if child.end <= name_at]
        if node.kind in (Kind.FIELD_DECL, Kind.VAR_DECL, Kind.PARM_DECL):
            return [child for child in children if self.is_initialiser(node, child)]
        if node.kind == Kind.CASE_STMT:
            self.visit_constant(children[0])
            return children[1:]
        if node.kind == Kind.ENUM_CONSTANT_DECL:
            for child in children:
                self.visit_constant(child)
            return []
        return children

    def is_initialiser(self, declaration, child):
        name_at = declaration.cursor.location.offset
        between = self.source.text[name_at + len(declaration.cursor.spelling):child.start]
        if child.kind in (Kind.TYPE_REF, Kind.TEMPLATE_REF, Kind.NAMESPACE_REF) or child.start < name_at:
            return False
        return child.kind == Kind.INIT_LIST_EXPR or "[" not in between or "=" in between or "{" in between

    def visit_constant(self, node):
        before, self.isConstant = self.isConstant, True
        self.visit(node)
        self.isConstant = before

    def visit_declaration(self, node):
        """A function or a variable; what is constexpr may lose the word."""
        before = self.relaxed, self.isConstant
        head = self.source.text[node.start:node.cursor.location.offset]
        if node.kind != Kind.VAR_DECL:
            owner = node.cursor.semantic_parent
            isMember = owner is not None and owner.kind in (Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE)
            self.functions.append((owner.spelling + "::" if isMember else "") + node.cursor.spelling)
        word = re.search(r"\bconstexpr\b", head)
        if word and self.relaxed is None:
            span = (node.start, node.end)
            self.found.relaxable[span] = (node.start + word.start(), node.start + word.end(), self.instead(node, head),
                                          node.cursor.spelling)
            self.relaxed = span
        self.visit_all(self.children_to_visit(node))
        if node.kind != Kind.VAR_DECL:
            self.functions.pop()
        self.relaxed, self.isConstant = before

    @staticmethod
    def instead(node, head):
        """What a constexpr becomes so that the value may come at run time."""
        if node.kind != Kind.VAR_DECL:
            return "" if "inline" in head or "template" in head else "inline"
        owner = node.cursor.semantic_parent.kind
        if owner in (Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE, Kind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION):
            return "inline"
        return "" if "static" in head or owner not in (Kind.NAMESPACE, Kind.TRANSLATION_UNIT) else "static"

    # ---- Conditions and comparisons

    def condition(self, node):
        """Negates what is asked, each part of it by itself."""
        node = self.core(node)
        if node.kind == Kind.BINARY_OPERATOR and self.operator_of(node) in ("&&", "||"):
            return  # Its parts are visited by themselves.
        if node.kind == Kind.UNARY_OPERATOR and self.source.text[node.start] == "!":
            return
        if node.kind == Kind.BINARY_OPERATOR and self.operator_of(node) in COMPARISONS:
            return
        if node.kind.is_expression() and node.kind not in LITERALS:
            self.replace("negated", node, f"!({self.text(node)})", "truth")

    def on_if_stmt(self, node):
        if re.match(r"if\s+constexpr", node.text(self.source)):
            return
        children = self.asked(node)
        if children[0].kind == Kind.VAR_DECL:
            variable = children[0].cursor.spelling
            end = children[0].end
            self.add("negated", children[0].text(self.source), f"!{variable}",
                     Change(end, end, variable, "condition"))
        else:
            self.condition(children[0])

    def asked(self, node):
        """The children of an if from what it asks on, which may be a declaration."""
        children = self.tree.children(node)
        children = children[1:] if children[0].kind == Kind.DECL_STMT else children
        return [children[0]] + [child for child in children[1:] if child.start >= children[0].end]

    def on_while_stmt(self, node):
        children = self.tree.children(node)
        if children[0].kind != Kind.VAR_DECL:
            self.condition(children[0])

    def on_do_stmt(self, node):
        self.condition(self.tree.children(node)[-1])

    def on_for_stmt(self, node):
        for child in self.tree.children(node)[:-1]:
            if child.kind.is_expression() and self.type_of(child).kind == TypeKind.BOOL:
                self.condition(child)

    def on_conditional_operator(self, node):
        self.condition(self.tree.children(node)[0])

    def on_binary_operator(self, node):
        parts = self.tree.children(node)
        sign = self.operator_of(node)
        if len(parts) != 2 or not sign:
            return
        left, right = self.text(parts[0]), self.text(parts[1])
        if sign in ("&&", "||"):
            self.replace("logic", node, f"{left} {'||' if sign == '&&' else '&&'} {right}")
            self.condition(parts[0])
            self.condition(parts[1])
        elif sign in COMPARISONS:
            self.replace("negated", node, f"{left} {NEGATIONS[sign]} {right}")
            if COMPARISONS[sign]:
                self.replace("boundary", node, f"{left} {COMPARISONS[sign]} {right}")
        elif sign in ARITHMETIC and self.is_plain_arithmetic(parts, sign):
            self.replace("arithmetic", node, f"{left} {ARITHMETIC[sign]} {right}")

    def is_plain_arithmetic(self, parts, sign):
        kinds = [self.type_of(part).kind for part in parts]
        if TypeKind.POINTER in kinds:
            return sign in "+-" and kinds == [TypeKind.POINTER, TypeKind.INT]
        return True

    def on_compound_assignment_operator(self, node):
        parts = self.tree.children(node)
        sign = self.operator_of(node)[:-1]
        if sign in ARITHMETIC:
            self.replace("arithmetic", node, f"{self.text(parts[0])} {ARITHMETIC[sign]}= {self.text(parts[1])}")

    def on_unary_operator(self, node):
        text = self.text(node)
        child = self.tree.children(node)
        if text.startswith("!") and child:
            self.condition(child[0])
        elif text.startswith(("++", "--")):
            self.replace("arithmetic", node, ("--" if text[0] == "+" else "++") + text[2:])
        elif text.endswith(("++", "--")):
            self.replace("arithmetic", node, text[:-2] + ("--" if text[-1] == "+" else "++"))
        elif text.startswith("-"):
            self.replace("arithmetic", node, text[1:])

    # ---- Constants

    def on_integer_literal(self, node):
        outer = node.parent
        if outer is not None and outer.kind == Kind.UNEXPOSED_EXPR and self.type_of(outer).kind == TypeKind.POINTER:
            return
        self.replace("constant", node, self.text(node) + " + 1")

    on_floating_literal = on_integer_literal

    def on_character_literal(self, node):
        self.replace("constant", node, f"static_cast<{self.type_of(node).spelling}>({self.text(node)} + 1)")

    def on_string_literal(self, node):
        self.replace("constant", node, '""' if self.text(node) != '""' else '"x"')

    def on_cxx_bool_literal_expr(self, node):
        self.replace("constant", node, "false" if self.text(node) == "true" else "true")

    def on_decl_ref_expr(self, node):
        """An enumerator becomes the next one."""
        constant = node.cursor.referenced
        if constant is None or constant.kind != Kind.ENUM_CONSTANT_DECL:
            return
        all_of = [each for each in constant.semantic_parent.get_children() if each.kind == Kind.ENUM_CONSTANT_DECL]
        others = [each for each in all_of if each.enum_value != constant.enum_value]
        if not others:
            return
        after = [each for each in others if each.enum_value > constant.enum_value]
        following = min(after or others, key=lambda each: each.enum_value)
        text = self.text(node)
        self.replace("constant", node, text[:len(text) - len(constant.spelling)] + following.spelling)

    # ---- Calls

    def on_call_expr(self, node):
        self.swap_arguments(node)
        if self.is_constructor_call(node):
            return
        kind = self.type_of(node).kind
        if kind == TypeKind.BOOL and not self.is_statement(node):
            self.condition(node)
        if self.is_operator_call(node):
            return
        self.drop_link(node)
        isReturned = node.parent is not None and node.parent.kind == Kind.RETURN_STMT
        if not self.is_statement(node) and not isReturned:
            if kind in INTEGERS:
                self.replace("dropped", node, "0")
            elif kind == TypeKind.POINTER:
                self.replace("dropped", node, "nullptr")

    def is_statement(self, node):
        """The value is of no use to anyone, or is thrown away by a cast to void."""
        outer = node.parent
        while outer is not None and outer.kind == Kind.UNEXPOSED_EXPR:
            outer = outer.parent
        return outer is None or outer.kind in BODIES or (
            outer.kind == Kind.CSTYLE_CAST_EXPR and self.type_of(outer).kind == TypeKind.VOID)

    def swap_arguments(self, node):
        inside = [child for child in self.tree.children(node) if child.kind.is_expression()]
        places = {(child.start, child.end): child for child in inside}
        arguments = [places.get((each.extent.start.offset, each.extent.end.offset))
                     for each in node.cursor.get_arguments() if each is not None]
        if self.is_operator_call(node) or ORDERLESS.match(re.sub(r"^(\w+::)+", "", self.text(node))):
            return
        for first, second in zip(arguments, arguments[1:]):
            if first is None or second is None or self.text(first) == self.text(second):
                continue
            kind = self.plain_type(first)
            if kind != self.plain_type(second) or "dependent" in kind or first.start >= second.start:
                continue
            one, two = self.text(first), self.text(second)
            self.add("swapped", f"{one}, {two}", f"{two}, {one}",
                     Change(first.start, first.end, two, "value"), Change(second.start, second.end, one, "value"))

    def plain_type(self, node):
        spelling = self.type_of(self.core(node)).spelling.replace("&", "").strip()
        return spelling if "*" in spelling else spelling.replace("const ", "")

    def drop_link(self, node):
        """A link of a chain of calls, each on what the one before it returned."""
        base = self.base_of(node)
        if base is None:
            return
        source = self.source.text
        link = in_one_line(source[base.end:node.end])
        self.add("dropped", link, "", Change(node.start, node.end, self.text(base), "value"))
        first = self.base_of(base)
        if first is not None:
            before = in_one_line(source[first.end:base.end])
            self.add("swapped", before + link, link + before,
                     Change(node.start, node.end, self.text(first) + link + before, "value"))

    def base_of(self, node):
        children = self.tree.children(node)
        if node.kind != Kind.CALL_EXPR or not children or children[0].kind != Kind.MEMBER_REF_EXPR:
            return None
        inner = self.tree.children(children[0])
        base = self.core(inner[0]) if inner else None
        isChain = base is not None and base.kind == Kind.CALL_EXPR and (
            self.type_of(base).spelling == self.type_of(node).spelling != "")
        return base if isChain else None

    # ---- Statements

    def on_compound_stmt(self, node):
        children = self.tree.children(node)
        for first, second in zip(children, children[1:]):
            if self.is_call_statement(first) and self.is_call_statement(second):
                self.exchange(first, second)

    def is_call_statement(self, node):
        node = self.core(node)
        if node.kind == Kind.CSTYLE_CAST_EXPR:
            node = self.core(self.tree.children(node)[-1])
        return node.kind == Kind.CALL_EXPR and not self.is_operator_call(node)

    def exchange(self, first, second):
        end = self.with_semicolon(second)
        if end is None:
            return
        one, two = self.text(first), self.text(second)
        self.add("swapped", f"{one}; {two}", f"{two}; {one}",
                 Change(first.start, first.end, "", "effect"), Change(end, end, one + ";", "before"))

    def statement_bodies(self, node):
        children = self.tree.children(node)
        if node.kind == Kind.IF_STMT:
            children = self.asked(node)[1:]
        elif node.kind in (Kind.FOR_STMT, Kind.WHILE_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.CASE_STMT):
            children = children[-1:]
        elif node.kind == Kind.DO_STMT:
            children = children[:1]
        if len(children) == 1 and self.core(children[0]).kind == Kind.CXX_THROW_EXPR and node.parent.kind in FUNCTIONS:
            return  # All that a function does that never returns: the compiler takes it for granted.
        for child in children:
            if child.kind.is_expression():
                self.replace("dropped", child, "", "effect")
            elif child.kind in (Kind.BREAK_STMT, Kind.CONTINUE_STMT):
                self.drop_statement(child)

    def drop_statement(self, node):
        end = self.with_semicolon(node)
        if end is not None:
            self.add("dropped", node.text(self.source), "", Change(node.start, end, ";", "statement"))

    def on_return_stmt(self, node):
        children = self.tree.children(node)
        if not children:
            return self.drop_statement(node)
        value = self.core(children[0])
        kind = self.type_of(children[0]).kind
        constant = value.cursor.referenced
        if value.kind in LITERALS or value.text(self.source).startswith(("{", "nullptr")) or (
                constant is not None and constant.kind == Kind.ENUM_CONSTANT_DECL):
            return
        if kind == TypeKind.BOOL:
            self.condition(value)
        elif kind in INTEGERS:
            self.replace("result", children[0], f"({self.text(children[0])}) + 1")
        elif kind not in (TypeKind.LVALUEREFERENCE, TypeKind.VOID, TypeKind.ENUM):
            end = self.with_semicolon(node)
            self.add("result", self.text(node), "return {}", Change(node.start, end, "return {};", "statement"))

