"""What the generator knows about the C++ side, independent of libclang."""
from __future__ import annotations

from dataclasses import dataclass, field
import re
from typing import List, Optional


def normalize_signature(text: str) -> str:
    """One spelling per signature: single spaces, none inside brackets or
    before '*', '&', ',' and ')'."""
    text = re.sub(r"\s+", " ", text.strip())
    text = re.sub(r"\s*([*&,()\[\]])\s*", r"\1", text)
    text = text.replace(",", ", ")
    return re.sub(r"\)const$", ") const", text)


@dataclass
class CType:
    """A C++ type reduced to what the conversion rules need.

    kind is one of: void, prim, bool, enum, class, ptr, lref, array,
    funcptr, other. `name` is the primitive spelling (prim), the qualified
    name (enum, class); `inner` is the pointee/referee/element type; `count`
    the length of an array."""
    kind: str
    spelling: str
    const: bool = False
    name: str = ""
    inner: Optional["CType"] = None
    count: int = 0

    def strip_ref(self) -> "CType":
        return self.inner if self.kind == "lref" else self


@dataclass
class CParam:
    name: str
    type: CType
    has_default: bool = False
    default: str = ""         # the default argument as written ("nullptr", "0.5f"), "" for none

    @property
    def null_default(self) -> bool:
        """A pointer parameter whose default is the null pointer: the toolkit accepts null."""
        return self.default in ("nullptr", "NULL", "0")


@dataclass
class CFunction:
    """A member function, constructor or (friend/free) operator."""
    name: str                 # C++ name, e.g. "setValue", "operator+="
    params: List[CParam]
    result: CType
    is_ctor: bool = False
    is_static: bool = False
    is_const: bool = False
    is_virtual: bool = False
    is_pure: bool = False
    is_variadic: bool = False
    is_free: bool = False     # friend or namespace-level function (no receiver)
    access: str = "public"
    order: int = 0            # position in the class body

    @property
    def signature(self) -> str:
        """How rules name this member: "setValue(const float[3])", "getValue(float &, float &) const"."""
        return normalize_signature(f"{self.name}({', '.join(p.type.spelling for p in self.params)})"
                                   f"{' const' if self.is_const else ''}")

    @property
    def is_operator(self) -> bool:
        return self.name.startswith("operator") and not self.name[8:9].isalnum() and self.name != "operator"


@dataclass
class CEnum:
    name: str
    constants: List[tuple]    # (name, value)
    access: str = "public"


@dataclass
class CClass:
    name: str                 # qualified with its enclosing classes: "SoErrorStack::StackFrame"
    header: str               # include path, e.g. "Orvex/SbVec3f.h"
    folder: str               # header folder relative to the include root, e.g. "Orvex/errors"
    bases: List[str] = field(default_factory=list)
    functions: List[CFunction] = field(default_factory=list)
    enums: List[CEnum] = field(default_factory=list)
    field_types: List[CType] = field(default_factory=list)
    public_members: List[tuple] = field(default_factory=list)   # (name, CType) of public data members
    size: int = 0
    is_abstract: bool = False
    has_virtual_dtor: bool = False
    has_public_dtor: bool = True
    has_user_ctor: bool = False
    has_public_default_ctor: bool = True
    is_polymorphic: bool = False
    outer: str = ""           # the enclosing class of a nested class
    nested: List[str] = field(default_factory=list)   # public nested classes, in declaration order

    @property
    def simple_name(self) -> str:
        return self.name.rsplit("::", 1)[-1]
