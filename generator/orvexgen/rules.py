"""The per-package rules files (generator/rules/<java package>.toml).

Keys (all optional):
  classes            classes of the header folder to wrap (default: none)
  value              classes that are array-backed value types
  services           classes of static members only (SoDB, SoPreferences):
                     Java classes with static methods and no objects
  extensible         classes that Java may subclass (guards are generated)
  exclude            member names never wrapped (every class)
  operators          table: C++ operator -> Java method name
  array_results      table: member name -> count expression, for every class
                     of the package that has the member (see [class.<Name>])
  index_bounds       table: member name -> { parameter = bound }, likewise
  caller_owns        member names, for every class of the package, whose
                     result of a plain owned class is a new object the caller
                     must delete (a detail's copy()): Java adopts it, and
                     frees it with its wrapper. Other owned results live in
                     the receiver, which lends them
  java_names         table: C++ class -> Java class name, where they differ
                     (SoSFInt32 = "SoSFInt")
  carried_by         table: C++ class -> C++ class whose Java class stands
                     for it (SoSFUInt32 = "SoSFInt32": no Java class of its
                     own; its objects arrive as the other class's wrappers)
  bulk               table: class -> { elem, components, value, per }: a
                     multiple-value field of numbers whose values also cross
                     in bulk (primitive arrays of elem, direct buffers):
                     components numbers per value (1 by default), value the
                     Java value class of a value of several numbers and per
                     what one of them is, for the documentation
  read_write         Java method names whose const value operands are pinned
                     READ_WRITE (copied back although only read); every other
                     const operand is pinned READ_ONLY
  [class.<Name>]
    Members are named by their signature as the headers spell it, parameter
    types only: "setValue(const float[3])", "getValue(float&, float&) const";
    constructors by the class name: "SbVec3f(float, float, float)".
    java_side        overloads the Java side implements (signatures)
    exclude          members of this class never wrapped (names: every
                     overload; or signatures)
    nullable         table: signature -> parameters that accept null (pointer
                     parameters whose default is null accept it anyway)
    array_lengths    table: signature -> { parameter = Java expression over
                     the other parameters }: how many elements a pointer to
                     an array holds (values, for arrays of value types)
    applied          members of an action (names: every overload; or
                     signatures) that read the traversal state, which only
                     exists while the action is being applied: called on an
                     idle action they throw IllegalStateException
    index_bounds     table: signature -> { parameter = Java expression }: the
                     parameter is an index that must lie in [0, expression)
                     (write "<= expr" for an inclusive bound, as an insertion
                     position); IndexOutOfBoundsException otherwise
    forward          virtuals (signatures, the class's or inherited) that the
                     native subclass Custom<Name> forwards to the Java
                     override, in the order of its method-identifier table
    reserve          table: name -> how many numbers come before the class's
                     own overloads of that name (numbers owned by the Java side)
    assumed_bytes    byte size the Java class assumes (checks only; defaults to
                     the size of the C++ class)
    holds            table: signature -> parameter. The receiver keeps using
                     the object passed there after the call (a renderer's
                     render action): the Java side keeps that object's
                     native object alive, whatever its wrapper's fate, until
                     the receiver is given another (or null) through a
                     member holding the same parameter name, or is released
    renews           members (names: every overload; or signatures) whose
                     call frees what the receiver lent until renewal (an
                     action's apply frees the previous traversal's picked
                     points): the Java side makes those objects' wrappers
                     refuse calls before the member runs
    lent_until_renewed
                     members (names or signatures) whose owned result lives
                     inside the receiver only until one of its `renews`
                     members (possibly a base class's) is called
    array_results    table: member -> count. The member returns a pointer to
                     that many contiguous values: objects of a wrapped class
                     (Java gets an array of copies) or primitives (a Java
                     array). The count is a member name ("getNumFrames") or
                     an expression over members and parameters
                     ("getNum() - start")

Nested classes are named as in C++ ("SoErrorStack::StackFrame", and
[class."SoErrorStack::StackFrame"]); their enclosing class must be wrapped too.
"""
from __future__ import annotations

import os
import tomllib
from dataclasses import dataclass, field
from typing import Dict, List, Set

from .cmodel import normalize_signature


@dataclass
class ClassRules:
    java_side: Set[str] = field(default_factory=set)
    exclude: Set[str] = field(default_factory=set)
    nullable: Dict[str, List[str]] = field(default_factory=dict)
    array_lengths: Dict[str, Dict[str, str]] = field(default_factory=dict)
    reserve: Dict[str, int] = field(default_factory=dict)
    assumed_bytes: int = 0
    array_results: Dict[str, str] = field(default_factory=dict)
    forward: List[str] = field(default_factory=list)
    index_bounds: Dict[str, Dict[str, str]] = field(default_factory=dict)
    holds: Dict[str, str] = field(default_factory=dict)
    applied: Set[str] = field(default_factory=set)
    renews: Set[str] = field(default_factory=set)
    lent_until_renewed: Set[str] = field(default_factory=set)


@dataclass
class BulkValues:
    elem: str                 # Java primitive type of the numbers
    components: int = 1       # numbers per value
    value: str = ""           # Java value class of a value, when components > 1
    per: str = ""             # what a value is, for the documentation ("vector")


@dataclass
class PackageRules:
    package: str
    path: str
    classes: List[str] = field(default_factory=list)
    value: Set[str] = field(default_factory=set)
    services: Set[str] = field(default_factory=set)
    extensible: Set[str] = field(default_factory=set)
    exclude: Set[str] = field(default_factory=set)
    operators: Dict[str, str] = field(default_factory=dict)
    read_write: Set[str] = field(default_factory=set)
    java_names: Dict[str, str] = field(default_factory=dict)
    carried_by: Dict[str, str] = field(default_factory=dict)
    array_results: Dict[str, str] = field(default_factory=dict)
    index_bounds: Dict[str, Dict[str, str]] = field(default_factory=dict)
    per_class: Dict[str, ClassRules] = field(default_factory=dict)
    bulk: Dict[str, BulkValues] = field(default_factory=dict)
    caller_owns: Set[str] = field(default_factory=set)

    def for_class(self, name: str) -> ClassRules:
        return self.per_class.get(name, ClassRules())


_TOP = {"classes", "value", "services", "extensible", "exclude", "operators", "read_write", "class", "java_names", "carried_by",
        "array_results", "index_bounds", "bulk", "caller_owns"}
_CLASS = {"java_side", "exclude", "reserve", "assumed_bytes", "array_results", "nullable", "array_lengths",
          "forward", "index_bounds", "holds", "applied", "renews", "lent_until_renewed"}


def load(path: str) -> PackageRules:
    with open(path, "rb") as f:
        data = tomllib.load(f)
    unknown = set(data) - _TOP
    if unknown:
        raise ValueError(f"{path}: unknown keys {sorted(unknown)}")
    package = os.path.basename(path)[: -len(".toml")]
    r = PackageRules(package=package, path=path)
    r.classes = list(data.get("classes", []))
    r.value = set(data.get("value", []))
    r.services = set(data.get("services", []))
    r.extensible = set(data.get("extensible", []))
    r.exclude = set(data.get("exclude", []))
    r.operators = dict(data.get("operators", {}))
    bad = [k for k, v in r.operators.items() if not isinstance(v, str) or k.isidentifier()]
    if bad:
        raise ValueError(f"{path}: [operators] maps operator symbols to Java names; not operators: {bad}")
    r.read_write = set(data.get("read_write", []))
    r.java_names = dict(data.get("java_names", {}))
    r.array_results = dict(data.get("array_results", {}))
    r.index_bounds = {k: dict(v) for k, v in data.get("index_bounds", {}).items()}
    r.carried_by = dict(data.get("carried_by", {}))
    r.caller_owns = set(data.get("caller_owns", []))
    for name, b in data.get("bulk", {}).items():
        if name not in r.classes:
            raise ValueError(f"{path}: bulk values for {name}, which is not in 'classes'")
        r.bulk[name] = BulkValues(elem=b["elem"], components=int(b.get("components", 1)), value=b.get("value", ""),
                                  per=b.get("per", ""))
        if r.bulk[name].components > 1 and not (r.bulk[name].value and r.bulk[name].per):
            raise ValueError(f"{path}: bulk values of {name}: several components need 'value' and 'per'")
    for k in list(r.java_names) + list(r.carried_by):
        if k not in r.classes:
            raise ValueError(f"{path}: {k} is renamed or carried but not in 'classes'")
    for name, c in data.get("class", {}).items():
        unknown = set(c) - _CLASS
        if unknown:
            raise ValueError(f"{path}: class {name}: unknown keys {sorted(unknown)}")
        if name not in r.classes:
            raise ValueError(f"{path}: rules for {name}, which is not in 'classes'")
        sig = normalize_signature
        r.per_class[name] = ClassRules(
            java_side={sig(x) for x in c.get("java_side", [])},
            exclude={sig(x) for x in c.get("exclude", [])},
            nullable={sig(k): list(v) for k, v in c.get("nullable", {}).items()},
            array_lengths={sig(k): dict(v) for k, v in c.get("array_lengths", {}).items()},
            reserve=dict(c.get("reserve", {})), assumed_bytes=int(c.get("assumed_bytes", 0)),
            array_results=dict(c.get("array_results", {})),
            forward=[sig(x) for x in c.get("forward", [])],
            index_bounds={sig(k): dict(v) for k, v in c.get("index_bounds", {}).items()},
            holds={sig(k): str(v) for k, v in c.get("holds", {}).items()},
            applied={sig(x) for x in c.get("applied", [])},
            renews={sig(x) for x in c.get("renews", [])},
            lent_until_renewed={sig(x) for x in c.get("lent_until_renewed", [])})
    for v in r.value | r.extensible | r.services:
        if v not in r.classes:
            raise ValueError(f"{path}: {v} is listed but not in 'classes'")
    return r


def load_dir(rules_dir: str) -> Dict[str, PackageRules]:
    out = {}
    for name in sorted(os.listdir(rules_dir)):
        if name.endswith(".toml"):
            r = load(os.path.join(rules_dir, name))
            out[r.package] = r
    return out
