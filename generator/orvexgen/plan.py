"""Decides what is wrapped and how: the native methods of each Java class,
their numbers, conversions and guards."""
from __future__ import annotations

from dataclasses import dataclass, field
import re
from typing import Dict, List, Optional

from . import cparse
from .cmodel import CClass, CFunction, CType
from .naming import java_package
from .rules import PackageRules
from .conversions import Conversion, Index, Void
from .types import JAVA_ELEM_BYTES, PRIM_JAVA, READ_ONLY, READ_WRITE, TypeContext, Unsupported, WrappedClass

BINARY_OPERATORS = {"+=", "-=", "*=", "/=", "==", "+", "-", "*", "/"}


class PlanError(RuntimeError):
    pass


@dataclass
class Param:
    """One parameter of a wrapped member: its name in both halves and its conversion."""
    name: str
    conv: Conversion

    @property
    def java_type(self) -> str:
        return self.conv.java_type

    @property
    def public_type(self) -> str:
        return self.conv.public_type

    @property
    def jni_type(self) -> str:
        return self.conv.jni_type


@dataclass
class Method:
    group: str                # Java public name (before Impl)
    index: int
    cfunc: CFunction
    native_name: str = ""
    receiver: str = "none"    # none | value | handle
    args: List[Param] = field(default_factory=list)
    result: Conversion = field(default_factory=Void)
    guard: str = ""           # "" | overridable | protected
    is_ctor: bool = False
    java_access: str = "public"
    skipped: str = ""         # why it is not wrapped ("" when it is)
    operator: str = ""        # the C++ operator symbol when the member is one
    array_count: str = ""     # array result: the Java method that gives its length
    # Java forms of the C++ default arguments, one per parameter (None where
    # there is none or it has no Java form); trailing ones give overloads.
    defaults: List[Optional[str]] = field(default_factory=list)
    overloads: List[int] = field(default_factory=list)   # parameter counts of the default-argument overloads
    holds: str = ""           # the parameter whose object the receiver keeps using after the call
    needs_applied: bool = False   # an action member that reads the traversal state
    renews: bool = False          # frees what the receiver lent until renewal
    lent_until_renewed: bool = False   # its owned result lives in the receiver until a renewal
    caller_owns: bool = False     # its owned result is a new object for the caller


@dataclass
class EnumPlan:
    name: str
    cpp_name: str             # "SbDataType::DataType"
    constants: List[tuple]


@dataclass
class ClassPlan:
    cls: CClass
    wrapped: WrappedClass
    rules: PackageRules
    java_base: str            # qualified Java base class, "" for none
    base_wrapped: Optional[WrappedClass]
    methods: List[Method] = field(default_factory=list)
    enums: List[EnumPlan] = field(default_factory=list)
    class_type_id: bool = False
    assumed_bytes: int = 0
    extensible: bool = False
    to_array: bool = False    # an owned class whose objects arrive as arrays of copies (toArrayImpl)
    field_members: List[tuple] = field(default_factory=list)   # (name, Java field class) of a field container
    output_members: List[str] = field(default_factory=list)    # names of an engine's outputs
    # An owned class whose destructor is not public but that counts its own
    # references (ref(), unref()): Java's reference is one count.
    self_counted: bool = False

    @property
    def name(self) -> str:
        """The C++ name (qualified with enclosing classes)."""
        return self.cls.name

    @property
    def java_simple(self) -> str:
        """The Java class's own name, as its declaration spells it."""
        return self.wrapped.java_name.rsplit(".", 1)[-1]

    @property
    def binary_name(self) -> str:
        """The Java class name within the package, '$' for nesting (JNI symbols)."""
        return self.wrapped.binary_name

    @property
    def outer(self) -> str:
        return self.cls.outer

    @property
    def package(self) -> str:
        return self.wrapped.package

    @property
    def kind(self) -> str:
        return self.wrapped.kind

    def wrapped_methods(self) -> List[Method]:
        return [m for m in self.methods if not m.skipped]

    def default_ctor(self) -> Optional[Method]:
        """The wrapped constructor that takes no arguments, if any."""
        return next((m for m in self.wrapped_methods() if m.is_ctor and not m.args), None)


def _value_elem(classes: Dict[str, CClass], name: str) -> str:
    """The single Java element type of a value class's storage."""
    found = set()

    def walk(t: CType) -> None:
        if t.kind == "array":
            walk(t.inner)
        elif t.kind == "prim":
            found.add(PRIM_JAVA[t.name])
        elif t.kind == "class" and t.name in classes:
            for ft in classes[t.name].field_types:
                walk(ft)
            for b in classes[t.name].bases:
                for ft in classes[b].field_types:
                    walk(ft)
        else:
            found.add("?" + t.spelling)

    for b in cparse.ancestors(classes, name):
        for ft in classes[b].field_types:
            walk(ft)
    for ft in classes[name].field_types:
        walk(ft)
    if len(found) != 1 or next(iter(found)).startswith("?"):
        raise PlanError(f"{name}: a value type needs storage of one primitive type, found {sorted(found)}")
    return next(iter(found))


def collect_wrapped(classes: Dict[str, CClass], all_rules: Dict[str, PackageRules]) -> Dict[str, WrappedClass]:
    """Every class selected by any rules file, with its kind."""
    out: Dict[str, WrappedClass] = {}
    for r in all_rules.values():
        for name in r.classes:
            if name not in classes:
                raise PlanError(f"{r.path}: class {name} not found in the headers")
            cls = classes[name]
            pkg = java_package(cls.folder)
            if pkg != r.package:
                raise PlanError(f"{r.path}: {name} is declared in {cls.folder} (package {pkg})")
            if cls.outer and cls.outer not in r.classes:
                raise PlanError(f"{r.path}: nested class {name} needs its enclosing class {cls.outer} in 'classes'")
            if name in r.services:
                out[name] = WrappedClass(name, pkg, "static")
            elif name in r.value:
                elem = _value_elem(classes, name)
                length = cls.size // JAVA_ELEM_BYTES[elem]
                if length * JAVA_ELEM_BYTES[elem] != cls.size:
                    raise PlanError(f"{name}: size {cls.size} is not a multiple of its {elem} elements")
                out[name] = WrappedClass(name, pkg, "value", elem, length)
            elif "SoRefCounter" in cparse.ancestors(classes, name) or name == "SoRefCounter":
                out[name] = WrappedClass(name, pkg, "refcounted")
            else:
                out[name] = WrappedClass(name, pkg, "owned")
            out[name].java = r.java_names.get(name, "")
    for r in all_rules.values():
        for name, carrier in r.carried_by.items():
            if carrier not in out:
                raise PlanError(f"{r.path}: {name} is carried by {carrier}, which is not wrapped")
            out[name].java = out[carrier].java_name
            out[name].carried = True
    return out


def collect_enums(classes: Dict[str, CClass], wrapped: Dict[str, WrappedClass]) -> Dict[str, tuple]:
    out = {}
    for name in wrapped:
        for e in classes[name].enums:
            if e.access == "public":
                out[f"{name}::{e.name}"] = (name, e.name)
    return out


def _operator_group(f: CFunction, cls: CClass, rules: PackageRules) -> Optional[str]:
    """The Java name of a binary operator of this class, or None when the
    operator has no Java form (unary, indexing, comparisons other than ==)."""
    sym = f.name[len("operator"):].strip()
    if sym not in rules.operators or sym not in BINARY_OPERATORS:
        return None
    if f.is_free:
        if len(f.params) != 2:
            return None
        first = f.params[0].type.strip_ref()
        if first.kind != "class" or first.name != cls.name:
            return None
    elif len(f.params) != 1:
        return None
    return rules.operators[sym]


def plan_class(name: str, classes: Dict[str, CClass], wrapped: Dict[str, WrappedClass],
               enums: Dict[str, tuple], rules: PackageRules) -> ClassPlan:
    cls = classes[name]
    w = wrapped[name]
    crules = rules.for_class(name)
    base_w = None
    java_base = ""
    for b in cls.bases:
        if b in wrapped:
            base_w = wrapped[b]
            java_base = base_w.qualified
            break
    if not java_base and w.kind not in ("value", "static"):
        java_base = "com.orvexa.orvex.misc.SoBase" if w.kind == "refcounted" else "com.orvexa.orvex.Orvex"
        if java_base == w.qualified:
            java_base = "com.orvexa.orvex.Orvex"   # the root of the reference-counted wrappers
    if base_w is not None and (base_w.kind == "value") != (w.kind == "value"):
        raise PlanError(f"{name}: a value type and a handle class cannot derive from each other")
    if base_w is not None and w.kind == "value" and base_w.package != w.package:
        # The length check of the storage goes through a package-private constructor.
        raise PlanError(f"{name}: a value type must be in the package of the value type it extends")

    plan = ClassPlan(cls, w, rules, java_base, base_w, extensible=name in rules.extensible)
    plan.assumed_bytes = crules.assumed_bytes or cls.size
    if w.kind == "owned" and not cls.has_public_dtor:
        chain = [name] + [b for b in cparse.ancestors(classes, name) if b in classes]
        members = [f for c in chain for f in classes[c].functions if f.access == "public" and not f.is_static]
        plan.self_counted = any(f.name == "ref" and not f.params for f in members) and \
            any(f.name == "unref" and all(p.has_default for p in f.params) for f in members)
    ctx = TypeContext(classes, wrapped, enums, w.package)
    ctx.owner = name

    for e in cls.enums:
        if e.access == "public":
            plan.enums.append(EnumPlan(e.name, f"{name}::{e.name}", e.constants))

    # The public fields of a field container (a node's `radius`) become final
    # Java fields holding the field objects, which the container owns.
    for member, t in cls.public_members:
        if t.kind == "class" and t.name in wrapped and "SoField" in cparse.ancestors(classes, t.name):
            plan.field_members.append((member, ctx.java_name(wrapped[t.name])))
        elif t.kind == "class" and t.name == "SoEngineOutput" and t.name in wrapped:
            plan.output_members.append(member)

    functions = list(cls.functions)
    if not cls.has_user_ctor and not cls.is_abstract and cls.has_public_default_ctor:
        # The implicit default constructor.
        functions.insert(0, CFunction(name=name, params=[], result=CType("void", "void"), is_ctor=True, order=0))
    functions.sort(key=lambda f: f.order)

    counters: Dict[str, int] = {}
    for f in functions:
        if f.access == "private":
            continue
        if f.is_ctor:
            group = "ctor"
        elif f.is_operator:
            group = _operator_group(f, cls, rules)
            if group is None:
                continue
        elif f.name == "getClassTypeId" and f.is_static and not f.params and \
                f.result.kind == "class" and f.result.name == "SoType":
            plan.class_type_id = True
            continue
        else:
            group = f.name
        index = counters.get(group, crules.reserve.get(group, 0))
        counters[group] = index + 1
        m = Method(group, index, f, is_ctor=f.is_ctor)
        if f.is_operator:
            m.operator = f.name[len("operator"):].strip()
        base = "ctorImpl" if f.is_ctor else f"{group}Impl"
        m.native_name = base + (str(index) if index else "")
        sig = f.signature
        if sig in crules.java_side:
            m.skipped = "implemented on the Java side"
        elif f.name in rules.exclude or f.name in crules.exclude or sig in crules.exclude:
            m.skipped = "excluded by the rules"
        elif f.is_ctor and cls.is_abstract:
            m.skipped = "abstract class"
        elif f.access == "protected" and not plan.extensible:
            m.skipped = "protected member of a class Java does not extend"
        elif w.kind == "static" and (f.is_ctor or not f.is_static):
            m.skipped = "a class of static services has no Java objects"
        else:
            try:
                _convert(m, plan, ctx, rules)
            except Unsupported as e:
                m.skipped = str(e)
        m.needs_applied = f.name in crules.applied or sig in crules.applied
        m.renews = f.name in crules.renews or sig in crules.renews
        m.lent_until_renewed = f.name in crules.lent_until_renewed or sig in crules.lent_until_renewed
        m.caller_owns = f.name in rules.caller_owns
        plan.methods.append(m)
    _check_rules_name_members(plan, crules, rules)
    _bounds_from_entry_points(plan)
    _check_array_counts(plan, crules)
    return plan


def _bounds_from_entry_points(plan: ClassPlan) -> None:
    """An index bounded by a query of the receiver without arguments
    ("getNumChildren()") is checked with that query's entry point on the
    address already marked in flight, not through its public method: one
    bracket per call instead of two, on paths as hot as getChild."""
    queries = {m.group: m for m in plan.methods
               if not m.skipped and not m.is_ctor and m.receiver == "handle" and not m.args
               and m.result.kind == "prim"}
    for m in plan.methods:
        if m.skipped or m.receiver != "handle":
            continue
        for a in m.args:
            if isinstance(a.conv, Index):
                match = re.fullmatch(r"(\w+)\(\)", a.conv.bound)
                query = queries.get(match.group(1)) if match else None
                if query is not None:
                    a.conv.bound_in_call = f"{query.native_name}(self)"


def _check_rules_name_members(plan: ClassPlan, crules, rules: PackageRules) -> None:
    """Every member a rule names must exist: a rule naming nothing is an error
    (a renamed or removed member would otherwise silently change the binding)."""
    signatures = {m.cfunc.signature for m in plan.methods}
    names = {m.cfunc.name for m in plan.methods}
    problems = []
    for key, what in (("java_side", crules.java_side), ("nullable", set(crules.nullable)),
                      ("array_lengths", set(crules.array_lengths)), ("index_bounds", set(crules.index_bounds)),
                      ("holds", set(crules.holds))):
        problems += [f"{key} names no member {s!r}" for s in sorted(what - signatures)]
    problems += [f"exclude names no member {s!r}" for s in sorted(crules.exclude - signatures - names)]
    for key, what in (("applied", crules.applied), ("renews", crules.renews),
                      ("lent_until_renewed", crules.lent_until_renewed)):
        problems += [f"{key} names no member {s!r}" for s in sorted(what - signatures - names)]
    by_sig = {m.cfunc.signature: m.cfunc for m in plan.methods}
    for sig, params in crules.nullable.items():
        known = {p.name for p in by_sig[sig].params} if sig in by_sig else set()
        problems += [f"nullable: {sig} has no parameter {p!r}" for p in params if sig in by_sig and p not in known]
    for sig, param in crules.holds.items():
        if sig in by_sig and param not in {p.name for p in by_sig[sig].params}:
            problems.append(f"holds: {sig} has no parameter {param!r}")
    for sig, lengths in crules.array_lengths.items():
        known = {p.name for p in by_sig[sig].params} if sig in by_sig else set()
        problems += [f"array_lengths: {sig} has no parameter {p!r}" for p in lengths if sig in by_sig and p not in known]
    if problems:
        raise PlanError(f"{plan.rules.path}: class {plan.name}: " + "; ".join(problems) +
                        f". Members: {sorted(signatures)}")


def _count_in_cpp(count: str, params: List[str]) -> str:
    """A count expression over members and parameters, spelled for the entry
    point: member calls go to `self`."""
    if count.isidentifier():
        count += "()"
    return re.sub(r"\b([A-Za-z_]\w*)\s*\(", lambda mm: f"self->{mm.group(1)}(", count)


def _check_array_counts(plan: ClassPlan, crules) -> None:
    members = {m.cfunc.name for m in plan.methods}
    unknown = set(crules.array_results) - members
    if unknown:
        raise PlanError(f"{plan.name}: array_results names no member: {sorted(unknown)}")
    for m in plan.wrapped_methods():
        if not m.array_count or not m.array_count.isidentifier():
            continue
        counts = [c for c in plan.wrapped_methods() if c.group == m.array_count and not c.args
                  and c.result.kind == "prim" and c.result.java_type == "int"
                  and (c.receiver == "none" or m.receiver != "none")]
        if not counts:
            raise PlanError(f"{plan.name}: the length of {m.group} needs a wrapped member "
                            f"int {m.array_count}() callable from it")


def mark_array_elements(plans: List[ClassPlan]) -> None:
    """Owned classes that are the elements of an array result get toArray."""
    by_name = {p.name: p for p in plans}
    for p in plans:
        for m in p.wrapped_methods():
            if m.result.kind != "array" or m.result.handle_class is None:
                continue
            element = by_name[m.result.handle_class.name]
            if element.default_ctor() is None:
                raise PlanError(f"{element.name}: arrays of it need a wrapped constructor without arguments")
            element.to_array = True


def _convert(m: Method, plan: ClassPlan, ctx: TypeContext, rules: PackageRules) -> None:
    f = m.cfunc
    kind = plan.kind
    crules = rules.for_class(plan.name)
    params = list(f.params)
    if f.is_ctor:
        m.receiver = "value" if kind == "value" else "none"
    elif f.is_free:
        m.receiver = "value" if kind == "value" else "handle"
        params = params[1:]
    elif f.is_static:
        m.receiver = "none"
    else:
        m.receiver = "value" if kind == "value" else "handle"
    mode = READ_WRITE if m.group in rules.read_write else READ_ONLY
    nullable = set(crules.nullable.get(f.signature, []))
    lengths = crules.array_lengths.get(f.signature, {})
    names = []
    for i, p in enumerate(params):
        pname = p.name if p.name and p.name not in names else f"arg{i}"
        if pname in RESERVED_NAMES:
            pname += "Arg"
        names.append(pname)
    # Array lengths are Java expressions over the Java parameter names.
    renamed = {p.name: n for p, n in zip(params, names)}
    buffer_counts = set()   # the `int&` counts of buffers: the buffer's capacity, no Java argument
    for i, p in enumerate(params):
        if f.is_variadic and i == len(params) - 1 and ctx.arg(p.type, mode).kind == "string":
            m.args.append(Param(names[i], ctx.format()))
            continue
        count = _buffer_count(params, i)
        if count is not None:
            m.args.append(Param(names[i], ctx.int_buffer(names[count], count_first=count < i)))
            buffer_counts.add(count)
            continue
        length = lengths.get(p.name)
        if length is None:
            length = _counted_by(params, i, names)
        if length is not None:
            for old, new in renamed.items():
                length = re.sub(rf"\b{re.escape(old)}\b", new, length)
        conv = ctx.arg(p.type, mode, nullable=p.name in nullable or p.null_default, length=length)
        bound = crules.index_bounds.get(f.signature, {}).get(p.name)
        if bound is None:
            bound = rules.index_bounds.get(f.name, {}).get(p.name)
        if bound is not None:
            if conv.kind != "prim" or conv.java_type != "int":
                raise PlanError(f"{plan.name}: index_bounds: {p.name} of {f.signature} is not an int")
            conv = Index(p.type.name, bound)
        m.args.append(Param(names[i], conv))
    m.defaults = [None if i >= len(params) else _java_default(params[i], m.args[i].conv, ctx)
                  for i in range(len(m.args))]
    # A buffer's count is passed by the buffer's conversion, next to it.
    m.args = [a for i, a in enumerate(m.args) if i not in buffer_counts]
    m.defaults = [d for i, d in enumerate(m.defaults) if i not in buffer_counts]
    if f.is_variadic and not any(a.conv.kind == "format" for a in m.args):
        raise Unsupported("variadic member without a format string")
    m.holds = crules.holds.get(f.signature, "")
    if m.holds:
        held = next((a for a in m.args if a.name == m.holds), None)
        if held is None or held.conv.kind != "handle" or held.conv.w.kind != "owned":
            raise PlanError(f"{plan.name}: holds: {m.holds} of {f.signature} is not an object Java owns")
    array_results = dict(rules.array_results)
    array_results.update(crules.array_results)
    if f.is_ctor:
        pass   # constructors return the new handle (or fill the receiver's array): no result conversion
    elif f.name in array_results:
        m.array_count = array_results[f.name]
        try:
            m.result = ctx.array_result(f.result, _count_in_cpp(m.array_count, [p.name for p in params]))
        except Unsupported as e:
            if f.name in crules.array_results:
                raise PlanError(f"{plan.name}: array_results: {f.name}: {e}") from e
            raise   # a package-wide rule that does not fit this class: not wrapped, as --report says
    else:
        m.result = ctx.result(f.result, plan.name, m.receiver)
        if m.result.kind == "value" and any(a.conv.kind == "olist_out" for a in m.args):
            raise Unsupported("a value result next to a list the toolkit fills")
        if m.operator and m.result.kind not in ("void", "self", "bool", "value", "prim", "handle_owned"):
            raise Unsupported(f"operator result {f.result.spelling}")
    if f.is_virtual and plan.extensible and f.access == "public" and not f.is_static:
        m.guard = "overridable"
    if f.access == "protected":
        m.guard = "protected"
        m.java_access = "protected"


_NUMBER = re.compile(r"^[-+]?(0[xX][0-9a-fA-F]+|\d+\.?\d*(?:[eE][-+]?\d+)?|\.\d+(?:[eE][-+]?\d+)?)[fFuUlL]*$")


def _java_default(p, conv, ctx: TypeContext) -> Optional[str]:
    """The Java expression of a C++ default argument, or None when it has none
    that is certain (constructed values, expressions)."""
    text = p.default.replace(" ", "")
    if not text:
        return None
    kind = conv.kind
    if kind == "prim" and _NUMBER.match(text):
        literal = text.rstrip("uUlL") if not text.lower().startswith("0x") else text.rstrip("uUlL")
        if conv.java_type in ("float", "double"):
            literal = text.rstrip("fFlL")
        return f"({conv.java_type}) ({literal})"
    if kind == "bool" and text in ("true", "false"):
        return text
    if kind in ("handle", "string") and text in ("nullptr", "NULL", "0") and getattr(conv, "nullable", False):
        return "null"
    if kind == "string" and text.startswith('"') and text.endswith('"'):
        return p.default.strip()
    if kind == "enum":
        constant = text.rsplit("::", 1)[-1]
        owner, enum = ctx.enums.get(conv.cpp, (None, None))
        if owner is not None:
            for e in ctx.classes[owner].enums:
                if e.name == enum and any(c == constant for c, _ in e.constants):
                    return f"{conv.enum_java}.{constant}"
    return None


# Parameter names the generated code uses itself.
RESERVED_NAMES = {"env", "clazz", "nativeObject", "returnedValue", "self", "result", "array", "i"}


# Parameter names that, next to a pointer to an array, give its element count
# (setValues(int start, int num, const float* values), set(const char** words, int count)).
COUNT_NAMES = ("num", "count", "numValues", "numElements", "length")


def _counted_by(params, i: int, names) -> Optional[str]:
    """The Java name of the int parameter that counts the array at i, or None."""
    t = params[i].type
    if t.kind not in ("ptr",) or t.inner is None or t.inner.kind == "prim" and t.inner.name == "char":
        return None
    for j, p in enumerate(params):
        if j != i and p.name in COUNT_NAMES and p.type.kind == "prim" and p.type.name in ("int", "unsigned int"):
            return p.name
    return None


def _is_int_out(t: CType) -> bool:
    return t.kind == "lref" and t.inner.kind == "prim" and t.inner.name == "int" and not t.inner.const


def _buffer_count(params, i: int) -> Optional[int]:
    """Index of the `int&` count that goes with a `const int*&` at i, or None."""
    t = params[i].type
    if not (t.kind == "lref" and t.inner.kind == "ptr" and t.inner.inner.kind == "prim"
            and t.inner.inner.name == "int" and t.inner.inner.const):
        return None
    for j in (i - 1, i + 1):
        if 0 <= j < len(params) and _is_int_out(params[j].type):
            return j
    return None


def _text_overload_of(m: Method, other: Method) -> bool:
    """m differs from other only in taking SbString or SbName where other takes
    const char* (the same Java String either way)."""
    if len(m.args) != len(other.args):
        return False
    better = False
    for a, b in zip(m.args, other.args):
        ka, kb = a.conv.kind, b.conv.kind
        if ka == kb == "string" and a.conv.cpp in ("SbString", "SbName") and b.conv.cpp == "const char*":
            better = True
        elif ka != kb or a.public_type != b.public_type:
            return False
    return better


def _signedness_overload_of(m: Method, other: Method) -> bool:
    """m differs from other only in the signedness of primitive (or
    primitive out-parameter) types: one Java type stands for both."""
    if len(m.args) != len(other.args) or m.cfunc.signature == other.cfunc.signature:
        return False
    differs = False
    for a, b in zip(m.cfunc.params, other.cfunc.params):
        ta, tb = a.type.strip_ref(), b.type.strip_ref()
        if ta.kind == tb.kind == "prim" and ta.name != tb.name:
            if PRIM_JAVA.get(ta.name) != PRIM_JAVA.get(tb.name):
                return False
            differs = True
        elif ta.spelling != tb.spelling:
            return False
    return differs


def _same_storage_overload_of(m: Method, other: Method) -> bool:
    """m and other take the same Java arrays, and their C++ parameters differ
    only in constness or in spelling one array of values two ways
    (`const SbVec3f*` and `const float[][3]`): one native form serves both."""
    if len(m.args) != len(other.args):
        return False
    differs = False
    for a, b, pa, pb in zip(m.args, other.args, m.cfunc.params, other.cfunc.params):
        if a.public_type != b.public_type or a.java_type != b.java_type:
            return False
        if pa.type.spelling != pb.type.spelling:
            if not a.java_type.endswith("[]"):
                return False
            differs = True
    return differs


def check_public_signatures(plan: ClassPlan) -> None:
    """Two wrapped overloads must not end up with the same Java signature:
    the later one is not wrapped, and --report says which one it collides
    with (a rule then chooses: exclude one, or move it to the Java side).
    Overloads made from default arguments only fill signatures still free."""
    seen = {}
    methods = {}
    for m in plan.wrapped_methods():
        if m.group == "equals" and m.operator == "==":
            continue   # becomes equals(Object)
        key = ("<init>" if m.is_ctor else m.group, tuple(a.public_type for a in m.args))
        if key in seen:
            other = methods[key]
            if _text_overload_of(m, other):
                # Text as const char* and as SbString: one Java String form,
                # native through the toolkit's string class, which holds any
                # Java text.
                other.skipped = (f"same Java signature as {m.cfunc.signature} ({m.group}({', '.join(key[1])}));"
                                 f" the SbString form is the native one")
                seen[key] = m.cfunc.signature
                methods[key] = m
                continue
            if _signedness_overload_of(m, other):
                m.skipped = (f"same Java signature as {seen[key]} ({m.group}({', '.join(key[1])})); "
                             f"the signed Java type carries the unsigned values")
                continue
            if _same_storage_overload_of(m, other):
                m.skipped = (f"same Java signature as {seen[key]} ({m.group}({', '.join(key[1])})); "
                             f"both read the same Java array (constness or array shape differ only)")
                continue
            m.skipped = (f"same Java signature as {seen[key]} ({m.group}({', '.join(key[1])})); "
                         f"exclude one of them in the rules")
            continue
        seen[key] = m.cfunc.signature
        methods[key] = m
    for m in plan.wrapped_methods():
        if m.is_ctor and plan.kind == "value":
            continue   # value constructors pass through this(...), which must come first
        count = len(m.args)
        while count > 0 and m.defaults[count - 1] is not None:
            count -= 1
            key = ("<init>" if m.is_ctor else m.group, tuple(a.public_type for a in m.args[:count]))
            if key in seen:
                break
            seen[key] = m.cfunc.signature + " with default arguments"
            m.overloads.append(count)
