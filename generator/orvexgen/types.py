"""Chooses the conversion (conversions.py) of each C++ parameter and result
type: the argument and result tables of the binding's conventions."""
from __future__ import annotations

from typing import Dict, Optional

from .cmodel import CClass, CType
from .conversions import (READ_ONLY, READ_WRITE, ArrayResult, PrimArrayResult, Bool, Conversion, Enum, Format, Handle,
                          HandleArray, IntBuffer, ListType, ObjectList, ObjectListIn, ObjectListOut, OutScalar,
                          OutString, OwnedCopy, PointerList, PrimArray, Primitive, Self, String, StringArray, TypeName,
                          Unsupported, Value, ValueRef, Void, WrappedClass)
from .cparse import ancestors

__all__ = ["PRIM_JAVA", "JAVA_ELEM_BYTES", "READ_ONLY", "READ_WRITE", "TypeContext", "Unsupported",
           "WrappedClass"]

# C++ primitive -> Java type
PRIM_JAVA = {
    "float": "float", "double": "double", "int": "int", "unsigned int": "int",
    "short": "short", "unsigned short": "short",
    "char": "byte", "signed char": "byte", "unsigned char": "byte",
    "long": "long", "unsigned long": "long", "long long": "long", "unsigned long long": "long",
    "char16_t": "char",
}
JAVA_ELEM_BYTES = {"float": 4, "double": 8, "int": 4, "short": 2, "byte": 1, "long": 8}
STRING_CLASSES = {"SbString", "SbName"}


class TypeContext:
    def __init__(self, classes: Dict[str, CClass], wrapped: Dict[str, WrappedClass],
                 enums: Dict[str, tuple], current_package: str):
        self.classes = classes
        self.wrapped = wrapped          # C++ class name -> WrappedClass
        self.enums = enums              # "Cls::Enum" -> (C++ owner class, enum name)
        self.package = current_package
        self.owner = ""                 # the class whose members are being converted

    def java_name(self, w: WrappedClass) -> str:
        return w.java_name if w.package == self.package else w.qualified

    def enum_java(self, name: str) -> str:
        if name not in self.enums:
            raise Unsupported(f"enum {name} belongs to no wrapped class")
        owner, enum = self.enums[name]
        return f"{self.java_name(self.wrapped[owner])}.{enum}"

    # ---- arguments ----
    def arg(self, t: CType, mode: str, nullable: bool = False, length: Optional[str] = None) -> Conversion:
        """The conversion of a parameter of type t. `mode` is the pinning mode
        of a const value operand, `nullable` says the toolkit accepts null for
        a pointer, `length` gives the element count of a pointer to an array
        (a Java expression over the other parameters)."""
        base = t.strip_ref()
        is_ref = t.kind == "lref"
        if t.kind in ("prim", "bool", "enum") or (is_ref and base.const and base.kind in ("prim", "bool", "enum")):
            return self._scalar(base)
        if is_ref and not base.const and base.kind in ("prim", "bool", "enum"):
            return self._out_scalar(base)
        if base.kind == "class" and base.name in STRING_CLASSES and (not is_ref or base.const):
            return String(base.name)
        if base.kind == "class" and base.name in STRING_CLASSES and is_ref:
            return OutString(base.name)
        if t.kind == "ptr" and _is_const_char(base.inner):
            return String("const char*", nullable)
        if is_ref and base.kind == "class":
            lt = self.list_type(base.name)
            if lt is not None:
                if base.const:
                    if not lt.appendable:
                        raise Unsupported(f"{base.name} cannot be built from Java (no append)")
                    return ObjectListIn(lt)
                return ObjectListOut(lt)
        if base.kind == "class" and base.name == "SoType" and (not is_ref or base.const):
            return TypeName()
        if base.kind == "class" and base.name in self.wrapped:
            w = self.wrapped[base.name]
            if w.kind == "value":
                return Value(w, self.java_name(w), base.name, mode if base.const else READ_WRITE)
            return Handle(w, self.java_name(w), base.name, by_ref=True, nullable=False,
                          applied=self._traversal_action(base.name))
        if t.kind == "ptr" and base.inner is not None and base.inner.kind == "ptr":
            return self._pointer_array(base.inner, length)
        if t.kind == "ptr" and base.inner is not None and base.inner.kind == "class" and \
                base.inner.name == "SbString" and base.inner.const:
            if length is None:
                raise Unsupported("array of strings of unknown length (give it in array_lengths)")
            return StringArray(length)
        if t.kind == "ptr" and base.inner is not None and base.inner.kind == "class":
            inner = base.inner
            if inner.name in self.wrapped:
                w = self.wrapped[inner.name]
                if w.kind == "value":   # a C array of values, as a flat primitive array
                    if length is None:
                        raise Unsupported(f"array of {inner.name} of unknown length (give it in array_lengths)")
                    return PrimArray(w.elem, f"{inner.spelling}*", mode if inner.const else READ_WRITE,
                                     f"({length}) * {w.length}", exact=False)
                return Handle(w, self.java_name(w), inner.name, by_ref=False, nullable=nullable,
                              applied=self._traversal_action(inner.name))
            raise Unsupported(f"pointer to {inner.name}, which is not wrapped")
        if t.kind in ("array", "ptr") or (is_ref and base.kind == "array"):
            if base.inner is not None and base.inner.kind == "void":
                raise Unsupported(f"parameter {t.spelling}: an untyped pointer has no Java form")
            return self._array_arg(t, mode, length)
        raise Unsupported(_why_not(t, "parameter"))

    def list_type(self, name: str) -> Optional[ListType]:
        """The list class `name` when its elements are objects of a wrapped
        class: it (or a base) has `int getLength() const` and `T* get(int)
        const` with T wrapped and handle-backed. None otherwise."""
        if name not in self.classes:
            return None
        chain = [name] + list(ancestors(self.classes, name))
        functions = [f for c in chain if c in self.classes for f in self.classes[c].functions if f.access == "public"]
        if not any(f.name == "getLength" and not f.params for f in functions):
            return None
        for f in functions:   # the most derived get() first: SoPathList's, not SbPList's void*
            if f.name != "get" or len(f.params) != 1 or f.is_static:
                continue
            r = f.result
            if r.kind != "ptr" or r.inner is None or r.inner.kind != "class":
                return None
            w = self.wrapped.get(r.inner.name)
            if w is None or w.kind == "value":
                return None
            appendable = any(g.name == "append" and len(g.params) == 1 and g.params[0].type.kind == "ptr"
                             and g.params[0].type.inner is not None and g.params[0].type.inner.name == r.inner.name
                             for g in functions)
            is_field = r.inner.name == "SoField" or "SoField" in ancestors(self.classes, r.inner.name)
            # Fields live in their containers: lent by the receiver when it is
            # the container listing its own fields.
            own_fields = is_field and bool(self.owner) and \
                (self.owner == "SoFieldContainer" or "SoFieldContainer" in ancestors(self.classes, self.owner))
            return ListType(name, w, self.java_name(w), r.inner.name, unreferenced="SoBaseList" in chain,
                            appendable=appendable,
                            lent=w.kind != "refcounted" and (not is_field or own_fields))
        return None

    def _traversal_action(self, cls: str) -> bool:
        """An action handed to a member of a traversed class (a node's or an
        engine's traversal method, a field's or element's state query): it
        must be the action being applied. Services that merely keep an action
        to apply later (a renderer's render action) take any action."""
        def derives(name: str, base: str) -> bool:
            return name == base or base in ancestors(self.classes, name)
        traversed = any(derives(self.owner, b) for b in ("SoBase", "SoField", "SoElement", "SoDetail")) \
            if self.owner else False
        return traversed and derives(cls, "SoAction")

    def _pointer_array(self, elem: CType, length: Optional[str]) -> Conversion:
        """`const char**`: a String[]; `T**` of a handle class: a long[] of handles."""
        target = elem.inner
        if length is None:
            raise Unsupported(f"array {elem.spelling}* of unknown length (give it in array_lengths)")
        if _is_const_char(target):
            return StringArray(length, f"{elem.spelling}*")
        if target is not None and target.kind == "class" and target.name in self.wrapped and \
                self.wrapped[target.name].kind != "value":
            return HandleArray(self.java_name(self.wrapped[target.name]), elem.spelling, length)
        raise Unsupported(f"array of pointers {elem.spelling}")

    def int_buffer(self, count: str, count_first: bool = True) -> Conversion:
        return IntBuffer(count, count_first)

    def enum_binary(self, name: str) -> str:
        owner, enum = self.enums[name]
        return f"{self.wrapped[owner].binary_qualified}${enum}"

    def _scalar(self, t: CType) -> Conversion:
        if t.kind == "bool":
            return Bool()
        if t.kind == "enum":
            return Enum(t.name, self.enum_java(t.name), self.enum_binary(t.name))
        if t.name not in PRIM_JAVA:
            raise Unsupported(f"primitive {t.name}")
        return Primitive(t.name, PRIM_JAVA[t.name])

    def _out_scalar(self, t: CType) -> Conversion:
        if t.kind == "bool":
            return OutScalar("boolean", "bool", "{p}Tmp ? 1 : 0")
        if t.kind == "enum":
            self.enum_java(t.name)
            return OutScalar("int", t.name, "static_cast<jint>({p}Tmp)")
        if t.name not in PRIM_JAVA:
            raise Unsupported(f"primitive {t.name}")
        return OutScalar(PRIM_JAVA[t.name], t.name, "{p}Tmp")

    def _array_arg(self, t: CType, mode: str, length: Optional[str]) -> Conversion:
        """Primitive arrays: `const float v[3]`, `float* p` (with a length from
        the rules), `const SbMat&` (a reference to a whole array)."""
        base = t.strip_ref()
        elem = base.inner
        dims = ""
        count = 1
        while elem is not None and elem.kind == "array":
            dims += f"[{elem.count}]"
            count *= elem.count
            elem = elem.inner
        if elem is None or elem.kind != "prim" or elem.name not in PRIM_JAVA:
            raise Unsupported(f"array type {t.spelling}")
        jelem = PRIM_JAVA[elem.name]
        use = mode if (elem.const or base.const) else READ_WRITE
        if t.kind == "lref":
            # A reference to a whole (multi-dimensional) array: reinterpret the storage.
            outer = f"[{base.count}]" if base.kind == "array" else ""
            total = count * (base.count if base.kind == "array" else 1)
            conv = PrimArray(jelem, f"{elem.name}(*){outer}{dims}", use, str(total), exact=True)
            conv.deref = True
            return conv
        if base.kind == "array":   # a parameter declared as an array decays to a pointer
            return PrimArray(jelem, f"{elem.name}*", use, str(base.count * count), exact=True)
        if length is None:
            raise Unsupported(f"array {t.spelling} of unknown length (give it in array_lengths)")
        cast = f"{elem.name}(*){dims}" if dims else f"{elem.name}*"
        return PrimArray(jelem, cast, use, f"({length}) * {count}" if count > 1 else length, exact=False)

    # ---- results ----
    def result(self, t: CType, owner: str, receiver_kind: str) -> Conversion:
        base = t.strip_ref()
        is_ref = t.kind == "lref"
        if t.kind == "void":
            return Void()
        if is_ref and not base.const and base.kind == "class" and receiver_kind != "none" and \
                (base.name == owner or base.name in ancestors(self.classes, owner)):
            return Self()
        if base.kind == "bool" and not is_ref:
            return Bool()
        if base.kind == "prim" and not is_ref:
            if base.name not in PRIM_JAVA:
                raise Unsupported(f"result {t.spelling}")
            return Primitive(base.name, PRIM_JAVA[base.name])
        if base.kind == "enum" and not is_ref:
            return Enum(base.name, self.enum_java(base.name), self.enum_binary(base.name))
        if base.kind == "class" and base.name in STRING_CLASSES and (not is_ref or base.const):
            return String(base.name)
        if t.kind == "ptr" and _is_const_char(base.inner):
            return String("const char*")
        if base.kind == "class" and base.name == "SoType" and not is_ref:
            return TypeName()
        target = base.inner if t.kind == "ptr" else base
        if target is not None and target.kind == "class":
            lt = self.list_type(target.name)
            if lt is not None:
                return ObjectList(lt, by_pointer=t.kind == "ptr")
        if target is not None and target.kind == "class" and \
                (target.name == "SbPList" or "SbPList" in ancestors(self.classes, target.name)):
            return PointerList(by_pointer=t.kind == "ptr", cpp_class=target.name)
        if target is not None and target.kind == "class" and target.name in self.wrapped:
            w = self.wrapped[target.name]
            jt = self.java_name(w)
            if w.kind == "value":
                if t.kind == "ptr":
                    raise Unsupported(f"result {t.spelling}: pointer to values")
                if not is_ref or receiver_kind == "value":
                    return Value(w, jt, target.name, READ_WRITE)
                return ValueRef(w, jt, target.name)
            if t.kind == "ptr" or is_ref:
                return Handle(w, jt, target.name, by_ref=is_ref, nullable=True)
            if w.kind == "owned":
                return OwnedCopy(w, jt, target.name)
        raise Unsupported(_why_not(t, "result"))

    def array_result(self, t: CType, count_cpp: str = "") -> Conversion:
        target = t.inner if t.kind == "ptr" else None
        if target is not None and target.kind == "prim" and target.name in PRIM_JAVA and count_cpp:
            return PrimArrayResult(target.name, PRIM_JAVA[target.name], count_cpp)
        if target is None or target.kind != "class" or target.name not in self.wrapped:
            raise Unsupported(f"an array result must point to objects of a wrapped class, not {t.spelling}")
        w = self.wrapped[target.name]
        if w.kind == "refcounted":
            raise Unsupported("reference-counted objects are not copied into arrays")
        return ArrayResult(w, self.java_name(w), target.name)

    def format(self) -> Conversion:
        return Format()


def _why_not(t: CType, what: str) -> str:
    """Why a parameter or result type has no conversion, in the report's words."""
    base = t.strip_ref()
    if base.kind == "funcptr" or (base.kind == "ptr" and base.inner is not None and base.inner.kind == "funcptr"):
        return f"{what} {t.spelling}: a toolkit callback, registered through a Java callback object"
    if base.kind == "ptr" and base.inner is not None and base.inner.kind == "void":
        return f"{what} {t.spelling}: an untyped pointer has no Java form"
    if base.kind == "ptr" and base.inner is not None and base.inner.kind == "ptr":
        return f"{what} {t.spelling}: a pointer to pointers without a count has no Java form"
    if base.kind == "ptr" and base.inner is not None and base.inner.kind in ("prim", "bool"):
        return f"{what} {t.spelling}: a pointer to values without a count"
    if "<" in t.spelling:
        return f"{what} {t.spelling}: a C++ template type has no Java form"
    target = base.inner if base.kind == "ptr" else base
    if target is not None and target.kind == "class" and target.name:
        return f"{what} {t.spelling}: {target.name} is not wrapped"
    return f"{what} type {t.spelling}"


def _is_const_char(t: Optional[CType]) -> bool:
    return t is not None and t.kind == "prim" and t.name == "char" and t.const
