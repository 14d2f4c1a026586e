"""Reads toolkit headers with libclang into the model of cmodel.py."""
from __future__ import annotations

import os
from typing import Dict, Iterable, List

import clang.cindex as ci

from .cmodel import CClass, CEnum, CFunction, CParam, CType

LIBCLANG = "/usr/lib/llvm-14/lib/libclang.so.1"
_configured = False

_PRIM = {
    ci.TypeKind.CHAR_S: "char", ci.TypeKind.SCHAR: "signed char", ci.TypeKind.UCHAR: "unsigned char",
    ci.TypeKind.CHAR_U: "char",
    ci.TypeKind.SHORT: "short", ci.TypeKind.USHORT: "unsigned short",
    ci.TypeKind.INT: "int", ci.TypeKind.UINT: "unsigned int",
    ci.TypeKind.LONG: "long", ci.TypeKind.ULONG: "unsigned long",
    ci.TypeKind.LONGLONG: "long long", ci.TypeKind.ULONGLONG: "unsigned long long",
    ci.TypeKind.FLOAT: "float", ci.TypeKind.DOUBLE: "double",
    ci.TypeKind.CHAR16: "char16_t", ci.TypeKind.WCHAR: "wchar_t",
}

_ACCESS = {
    ci.AccessSpecifier.PUBLIC: "public",
    ci.AccessSpecifier.PROTECTED: "protected",
    ci.AccessSpecifier.PRIVATE: "private",
}


class ParseError(RuntimeError):
    pass


def _configure() -> None:
    global _configured
    if not _configured:
        if not ci.Config.loaded:
            ci.Config.set_library_file(LIBCLANG)
        _configured = True


def convert_type(t: ci.Type) -> CType:
    """Reduces a clang type to a CType (typedefs resolved, const kept)."""
    spelling = t.spelling
    const = t.is_const_qualified()
    k = t.kind
    if k in (ci.TypeKind.ELABORATED, ci.TypeKind.TYPEDEF, ci.TypeKind.UNEXPOSED, ci.TypeKind.AUTO):
        canon = t.get_canonical()
        if canon.kind == k and k == ci.TypeKind.UNEXPOSED:
            return CType("other", spelling, const)
        r = convert_type(canon)
        r.spelling = spelling
        r.const = r.const or const
        return r
    if k == ci.TypeKind.VOID:
        return CType("void", spelling, const)
    if k == ci.TypeKind.BOOL:
        return CType("bool", spelling, const, name="bool")
    if k in _PRIM:
        return CType("prim", spelling, const, name=_PRIM[k])
    if k == ci.TypeKind.ENUM:
        return CType("enum", spelling, const, name=t.get_canonical().spelling.replace("const ", ""))
    if k == ci.TypeKind.RECORD:
        return CType("class", spelling, const, name=qualified_name(t.get_declaration()))
    if k == ci.TypeKind.LVALUEREFERENCE:
        return CType("lref", spelling, False, inner=convert_type(t.get_pointee()))
    if k == ci.TypeKind.POINTER:
        pointee = t.get_pointee()
        pk = pointee.get_canonical().kind
        if pk in (ci.TypeKind.FUNCTIONPROTO, ci.TypeKind.FUNCTIONNOPROTO):
            return CType("funcptr", spelling, const)
        return CType("ptr", spelling, const, inner=convert_type(pointee))
    if k == ci.TypeKind.CONSTANTARRAY:
        return CType("array", spelling, const, inner=convert_type(t.element_type), count=t.get_array_size())
    if k == ci.TypeKind.INCOMPLETEARRAY:
        return CType("ptr", spelling, const, inner=convert_type(t.element_type))
    return CType("other", spelling, const)


_RECORDS = (ci.CursorKind.CLASS_DECL, ci.CursorKind.STRUCT_DECL)


def qualified_name(decl: ci.Cursor) -> str:
    """A class's name with the classes it is nested in ("SoErrorStack::StackFrame");
    namespaces are not part of it."""
    parts = [decl.spelling]
    parent = decl.semantic_parent
    while parent is not None and parent.kind in _RECORDS:
        parts.insert(0, parent.spelling)
        parent = parent.semantic_parent
    return "::".join(parts)


def _params(cursor: ci.Cursor) -> List[CParam]:
    out = []
    for i, p in enumerate(cursor.get_arguments()):
        defaults = [c for c in p.get_children() if c.kind.is_expression()]
        default = " ".join(t.spelling for t in defaults[0].get_tokens()) if defaults else ""
        out.append(CParam(p.spelling or f"arg{i}", convert_type(p.type), bool(defaults), default))
    return out


def _function(cursor: ci.Cursor, order: int, access: str, free: bool = False) -> CFunction:
    is_ctor = cursor.kind == ci.CursorKind.CONSTRUCTOR
    method = cursor.kind == ci.CursorKind.CXX_METHOD
    return CFunction(
        name=cursor.spelling,
        params=_params(cursor),
        result=CType("void", "void") if is_ctor else convert_type(cursor.result_type),
        is_ctor=is_ctor,
        is_static=method and cursor.is_static_method(),
        is_const=method and cursor.is_const_method(),
        is_virtual=method and cursor.is_virtual_method(),
        is_pure=method and cursor.is_pure_virtual_method(),
        is_variadic=cursor.type.kind == ci.TypeKind.FUNCTIONPROTO and cursor.type.is_function_variadic(),
        is_free=free,
        access=access,
        order=order,
    )


def _in_root(cursor: ci.Cursor, roots: List[str]) -> str:
    """The header of the cursor relative to the first include root holding it, or ''."""
    loc = cursor.location
    if loc.file is None:
        return ""
    path = os.path.realpath(loc.file.name)
    for r in roots:
        root = os.path.realpath(r) + os.sep
        if path.startswith(root):
            return path[len(root):]
    return ""


def _read_class(cursor: ci.Cursor, header: str, classes: Dict[str, CClass]) -> CClass:
    """Reads one class into `classes`, and its public nested classes after it."""
    name = qualified_name(cursor)
    cls = CClass(name=name, header=header, folder=os.path.dirname(header),
                 outer=name.rsplit("::", 1)[0] if "::" in name else "")
    classes[cls.name] = cls
    cls.size = cursor.type.get_size()
    cls.is_abstract = cursor.is_abstract_record()
    order = 0
    ctors = []
    for c in cursor.get_children():
        order += 1
        access = _ACCESS.get(c.access_specifier, "public")
        if c.kind == ci.CursorKind.CXX_BASE_SPECIFIER:
            if access == "public":
                cls.bases.append(qualified_name(c.type.get_declaration()))
        elif c.kind == ci.CursorKind.CONSTRUCTOR:
            f = _function(c, order, access)
            if c.is_copy_constructor() or c.is_move_constructor():
                continue
            ctors.append((f, c))
            cls.functions.append(f)
        elif c.kind == ci.CursorKind.CXX_METHOD:
            if c.is_deleted_method() if hasattr(c, "is_deleted_method") else False:
                continue
            cls.functions.append(_function(c, order, access))
        elif c.kind == ci.CursorKind.DESTRUCTOR:
            if c.is_virtual_method():
                cls.has_virtual_dtor = True
            if access != "public":
                cls.has_public_dtor = False
        elif c.kind == ci.CursorKind.FRIEND_DECL:
            for fc in c.get_children():
                if fc.kind == ci.CursorKind.FUNCTION_DECL:
                    cls.functions.append(_function(fc, order, "public", free=True))
        elif c.kind == ci.CursorKind.ENUM_DECL and c.spelling:
            consts = [(e.spelling, e.enum_value) for e in c.get_children()
                      if e.kind == ci.CursorKind.ENUM_CONSTANT_DECL]
            cls.enums.append(CEnum(c.spelling, consts, access))
        elif c.kind == ci.CursorKind.FIELD_DECL:
            cls.field_types.append(convert_type(c.type))
            if access == "public":
                cls.public_members.append((c.spelling, convert_type(c.type)))
        elif c.kind in _RECORDS and c.is_definition() and c.spelling and access == "public":
            _read_class(c, header, classes)
    cls.has_user_ctor = bool(ctors)
    if ctors:
        cls.has_public_default_ctor = any(
            f.access == "public" and all(p.has_default for p in f.params) for f, _ in ctors)
    # Polymorphic when any method is virtual (the destructor included).
    cls.is_polymorphic = cls.has_virtual_dtor or any(f.is_virtual for f in cls.functions)
    return cls


def parse_headers(include_root: str, headers: Iterable[str], extra_args: List[str] = (),
                  extra_roots: List[str] = ()) -> Dict[str, CClass]:
    """Parses the headers (paths relative to include_root) in one translation
    unit; returns every class defined under include_root or the extra roots
    (known to the conversions, wrapped only when a rules file selects them)."""
    roots = [include_root, *extra_roots]
    _configure()
    headers = sorted(headers)
    source = "".join(f'#include <{h}>\n' for h in headers)
    index = ci.Index.create()
    args = ["-x", "c++", "-std=c++17", "-I", include_root, *extra_args]
    tu = index.parse("orvexgen_all.cpp", args=args, unsaved_files=[("orvexgen_all.cpp", source)],
                     options=ci.TranslationUnit.PARSE_SKIP_FUNCTION_BODIES)
    errors = [d for d in tu.diagnostics if d.severity >= ci.Diagnostic.Error]
    if errors:
        raise ParseError("\n".join(f"{d.location.file}:{d.location.line}: {d.spelling}" for d in errors))

    classes: Dict[str, CClass] = {}
    free_ops: List[ci.Cursor] = []

    def visit(parent: ci.Cursor) -> None:
        for c in parent.get_children():
            header = _in_root(c, roots)
            if not header:
                continue
            if c.kind in _RECORDS and c.is_definition():
                # (A nested class may also be defined out of its class, here.)
                if c.spelling and qualified_name(c) not in classes:
                    _read_class(c, header, classes)
            elif c.kind == ci.CursorKind.FUNCTION_DECL and c.spelling.startswith("operator"):
                free_ops.append(c)
            elif c.kind == ci.CursorKind.NAMESPACE and c.spelling != "std":
                visit(c)

    visit(tu.cursor)

    # Namespace-level operators belong to the class of their first operand;
    # they come after the class's own members.
    for i, c in enumerate(free_ops):
        f = _function(c, 100000 + i, "public", free=True)
        if not f.params:
            continue
        first = f.params[0].type.strip_ref()
        if first.kind == "class" and first.name in classes:
            classes[first.name].functions.append(f)

    for cls in classes.values():
        if cls.outer in classes:
            classes[cls.outer].nested.append(cls.name)

    # Virtual destructors are inherited.
    def virtual_dtor(name: str, seen=()) -> bool:
        cls = classes.get(name)
        if cls is None or name in seen:
            return False
        return cls.has_virtual_dtor or any(virtual_dtor(b, seen + (name,)) for b in cls.bases)

    for cls in classes.values():
        cls.has_virtual_dtor = virtual_dtor(cls.name)
        cls.is_polymorphic = cls.is_polymorphic or cls.has_virtual_dtor
    return classes


def ancestors(classes: Dict[str, CClass], name: str) -> List[str]:
    """The public base classes of `name`, nearest first."""
    out: List[str] = []
    todo = list(classes[name].bases) if name in classes else []
    while todo:
        b = todo.pop(0)
        if b not in out:
            out.append(b)
            if b in classes:
                todo.extend(classes[b].bases)
    return out
