"""Writes the Java half: the class with its native declarations, the public
methods that call them, and the hand-written fragment of the class, if any."""
from __future__ import annotations

import os
from typing import List, Optional, Sequence, Tuple

from .conversions import JavaContext
from .emit_bulk import bulk_members
from .plan import ClassPlan, Method

JAVA_BOXED_HASH = {"float": "Float.hashCode(e == 0f ? 0f : e)", "double": "Double.hashCode(e == 0d ? 0d : e)",
                   "int": "e", "short": "e", "byte": "e", "long": "Long.hashCode(e)"}


def read_fragment(fragments_dir: Optional[str], plan: ClassPlan) -> Tuple[List[str], List[str]]:
    """A fragment is <fragments_dir>/<package path>/<Class>.java: import lines
    first, then class members, spliced into the generated class."""
    if not fragments_dir:
        return [], []
    path = fragment_path(fragments_dir, plan.package, plan.wrapped.java_name)
    if not os.path.exists(path):
        return [], []
    imports, body = [], []
    with open(path, encoding="utf-8") as f:
        for line in f.read().splitlines():
            if not body and line.startswith("import "):
                imports.append(line)
            elif body or line.strip():
                body.append(line)
    return imports, body


def fragment_path(fragments_dir: str, package: str, name: str) -> str:
    """name is the Java name within the package: a nested class's fragment is
    <Outer>.<Nested>.java."""
    return os.path.join(fragments_dir, *package.split("."), name + ".java")


def _public_params(m: Method) -> str:
    return ", ".join(f"{a.public_type} {a.name}" for a in m.args)


def _native_params(plan: ClassPlan, m: Method) -> str:
    ps = []
    if m.receiver == "value":
        ps.append(f"{plan.wrapped.elem}[] nativeObject")
    elif m.receiver == "handle":
        ps.append("long nativeObject")
    ps += [f"{a.java_type} {a.name}" for a in m.args]
    if m.result.kind == "value":
        ps.append(f"{m.result.value_class.elem}[] returnedValue")
    return ", ".join(ps)


def _native_args(plan: ClassPlan, m: Method, extra: Sequence[str] = ()) -> str:
    ps = []
    if m.receiver == "value":
        ps.append("array")
    elif m.receiver == "handle":
        ps.append("self")
    ps += [a.conv.java_pass(a.name) for a in m.args]
    ps += list(extra)
    return ", ".join(ps)


def _guarded_body(plan: ClassPlan, m: Method, inner: List[str]) -> List[str]:
    """The statements of a public method around its native call: argument
    checks first, then every object (the receiver first) marked in flight,
    each released in a finally block in reverse order."""
    out = []
    if m.needs_applied:
        # The traversal state it reads exists only while the action is applied.
        out.append("if (!isBeingApplied()) throw new IllegalStateException(\"this action is not being applied\");")
    for a in m.args:
        out += a.conv.java_checks(a.name)
    brackets = []
    if m.receiver == "handle":
        brackets.append((["final long self = com.orvexa.internal.NativeCalls.begin(this, \"this\");"],
                         ["com.orvexa.internal.NativeCalls.end(this);"]))
    for a in m.args:
        begin = a.conv.java_begin(a.name)
        if begin:
            brackets.append((begin, a.conv.java_end(a.name)))
    body = [line for a in m.args for line in a.conv.java_checks_in_call(a.name)] + list(inner)
    for begin, end in reversed(brackets):
        if not end:   # nothing to undo: no bracket
            body = begin + body
            continue
        body = begin + ["try {"] + ["  " + line for line in body] + ["} finally {"] + \
               ["  " + line for line in end] + ["}"]
    return ["    " + line for line in out + body]


def _public_method(plan: ClassPlan, m: Method) -> List[str]:
    r = m.result
    static = m.receiver == "none"
    ret = plan.java_simple if r.kind == "self" else r.public_type
    mods = f"{m.java_access} {'static ' if static else ''}"
    out = [f"  {mods}{ret} {m.group}({_public_params(m)}) {{"]
    ctx = JavaContext(plan.package, plan.java_simple, m.array_count, "this" if m.receiver == "handle" else "",
                      m.lent_until_renewed, m.caller_owns)
    call = f"{m.native_name}({_native_args(plan, m)})"
    after = [line for a in m.args for line in a.conv.java_after(a.name, ctx)]
    if not after:
        inner = r.java_result(lambda extra: f"{m.native_name}({_native_args(plan, m, extra)})", ctx)
    elif r.kind in ("void", "self"):
        inner = [f"{call};"] + after + (["return this;"] if r.kind == "self" else [])
    else:
        # The native result waits while the caller's lists are filled.
        inner = [f"final {r.java_type} nativeResult = {call};"] + after + \
            r.java_result(lambda extra: "nativeResult", ctx)
    if m.holds:
        # Taken while the argument is still marked in flight, so it cannot be
        # freed in between; after the native call where nothing is returned
        # (the previous object is let go only once the receiver no longer
        # uses it), else before it, which at worst keeps an object a little
        # longer should the call fail.
        inner = inner + [_hold(m)] if r.kind == "void" else [_hold(m)] + inner
    if m.renews:
        # Before the call: what it frees must be refused from now on, and
        # whatever the call itself lends belongs to the new round.
        inner = ["com.orvexa.internal.NativeCalls.renew(this);"] + inner
    out += _guarded_body(plan, m, inner)
    out.append("  }")
    return out


def _class_overload(plan: ClassPlan, m: Method) -> List[str]:
    """The overloads of a method whose toolkit-type arguments are given as
    Java classes (SoSphere.class) instead of type names, for the full form and
    each default-argument form; they pass the names on."""
    alts = [a for a in m.args if getattr(a.conv, "alt_public_type", "")]
    if not alts:
        return []
    out = []
    for count in [len(m.args)] + list(m.overloads):
        used = m.args[:count]
        if not any(a in alts for a in used):
            continue
        params = ", ".join(f"{a.conv.alt_public_type if a in alts else a.public_type} {a.name}" for a in used)
        args = ", ".join([a.conv.alt_convert(a.name) if a in alts else a.name for a in used] +
                         [d for d in m.defaults[count:]])
        if m.is_ctor:
            out += [f"  public {plan.java_simple}({params}) {{", f"    this({args});", "  }", ""]
            continue
        r = m.result
        ret = plan.java_simple if r.kind == "self" else r.public_type
        static = "static " if m.receiver == "none" else ""
        out += [f"  {m.java_access} {static}{ret} {m.group}({params}) {{",
                f"    {'' if ret == 'void' else 'return '}{m.group}({args});", "  }", ""]
    return out


def _default_overloads(plan: ClassPlan, m: Method) -> List[str]:
    """The Java overloads that C++ default arguments give: each passes the
    defaults of the parameters it leaves out to the full method."""
    out = []
    for count in m.overloads:
        params = ", ".join(f"{a.public_type} {a.name}" for a in m.args[:count])
        args = ", ".join([a.name for a in m.args[:count]] + [d for d in m.defaults[count:]])
        if m.is_ctor:
            out += [f"  public {plan.java_simple}({params}) {{", f"    this({args});", "  }", ""]
            continue
        r = m.result
        ret = plan.java_simple if r.kind == "self" else r.public_type
        static = "static " if m.receiver == "none" else ""
        call = f"{m.group}({args})"
        out += [f"  {m.java_access} {static}{ret} {m.group}({params}) {{",
                f"    {'' if ret == 'void' else 'return '}{call};", "  }", ""]
    return out


def _hold(m: Method) -> str:
    return f"com.orvexa.internal.NativeCalls.hold(this, \"{m.holds}\", {m.holds});"


def _constructor(plan: ClassPlan, m: Method) -> List[str]:
    """A constructor; the checks and brackets of its arguments run in a static
    method, since `super(...)` must come first."""
    name = plan.java_simple
    out = [f"  public {name}({_public_params(m)}) {{"]
    params = ", ".join(a.name for a in m.args)
    native = f"{m.native_name}({', '.join(a.conv.java_pass(a.name) for a in m.args)})"
    if plan.kind == "value":
        w = plan.wrapped
        out.append(f"    this(new {w.elem}[{w.length}], (Void) null);")
        call = f"{m.native_name}({', '.join(['array'] + [a.conv.java_pass(a.name) for a in m.args])});"
        out += _guarded_body(plan, m, [call])
        out.append("  }")
        return out
    simple = all(not a.conv.java_checks(a.name) and not a.conv.java_begin(a.name) for a in m.args)
    handle = native if simple else f"{m.native_name}Checked({params})"
    # Through the handle constructor, which also binds the field members.
    if plan.kind == "refcounted":
        out.append(f"    this(new com.orvexa.internal.RefCountedNativeResourceHandle({handle}));")
    else:
        out.append(f"    this(new NativeResourceHandle({handle}));")
    if m.holds:
        # Should the object be disposed meanwhile, this throws, and the new
        # native object (which never used it) goes with its unreachable wrapper.
        out.append("    " + _hold(m))
    out.append("  }")
    if not simple:
        out += ["", f"  private static long {m.native_name}Checked({_public_params(m)}) {{"]
        out += _guarded_body(plan, m, [f"return {native};"])
        out.append("  }")
    return out


def _native_access_registration(plan: ClassPlan) -> List[str]:
    """Hands the class's package-private raw-address operations to the
    binding's generated code of other packages."""
    name = plan.java_simple
    ops = []
    if plan.kind == "value":
        ops += [f"      @Override public {name} copy(long address) {{ return {name}.copy(address); }}",
                f"      @Override public {name}[] copies(long address, int count) {{ return {name}.copies(address, count); }}"]
    elif plan.kind == "owned":
        ops.append(f"      @Override public {name} adopt(long address) {{ return {name}.adopt(address); }}")
        if plan.to_array:
            ops.append(f"      @Override public {name}[] copies(long address, int count) "
                       f"{{ return {name}.copies(address, count); }}")
    if not ops:
        return []
    return [f"    com.orvexa.internal.NativeAccess.register({name}.class, "
            f"new com.orvexa.internal.NativeAccess.Ops<{name}>() {{"] + ops + ["    });"]


def _equals_method(plan: ClassPlan) -> Optional[Method]:
    for m in plan.wrapped_methods():
        if m.operator == "==" and m.group == "equals":
            return m
    return None


def emit(plan: ClassPlan, fragments_dir: Optional[str], plans: Sequence[ClassPlan] = ()) -> str:
    """The Java source of a top-level class; the classes of `plans` nested in
    it become its nested static classes."""
    imports, body = _class_lines(plan, fragments_dir, plans)
    lines = [f"package {plan.package};", ""]
    lines += sorted(set(imports))
    if imports:
        lines.append("")
    return "\n".join(lines + body + [""])


def _class_lines(plan: ClassPlan, fragments_dir: Optional[str], plans: Sequence[ClassPlan]) \
        -> Tuple[List[str], List[str]]:
    """The imports a class needs and its declaration, nested classes included."""
    name = plan.java_simple
    w = plan.wrapped
    imports, fragment = read_fragment(fragments_dir, plan)
    lines: List[str] = []
    if w.kind == "value":
        doc = (f"Array-backed value of the toolkit class {{@code {plan.name}}}: {{@link #array}} holds its "
               f"{plan.assumed_bytes} bytes as {w.length} {w.elem}s, in the toolkit's member order.")
    elif w.kind == "owned":
        doc = f"Wrapper of the toolkit class {{@code {plan.name}}}, a native object that Java owns."
    elif w.kind == "static":
        doc = f"The static services of the toolkit class {{@code {plan.name}}}."
    else:
        doc = f"Wrapper of the reference-counted toolkit class {{@code {plan.name}}}."
    lines += ["/**", f" * {doc}", " * Generated by orvexgen from the toolkit headers; do not edit.", " */"]
    ext = f" extends {plan.java_base}" if plan.java_base else ""
    # Plain owned objects (actions, inputs...) are released with try-with-resources too.
    closeable = w.kind == "owned" and plan.base_wrapped is None
    if closeable:
        ext += " implements AutoCloseable"
    lines.append(f"public {'static ' if plan.outer else ''}class {name}{ext} {{")
    lines += ["  static {", "    com.orvexa.orvex.Orvex.init();"]
    if w.kind == "value":
        lines.append("    checkSize();")
    lines += _native_access_registration(plan)
    lines += ["  }", ""]

    if w.kind == "value":
        if plan.base_wrapped is None:
            lines += ["  /** The value's storage: exactly the bytes of the toolkit value. */",
                      f"  public final {w.elem}[] array;", "",
                      "  /** Adopts {@code storage}, which must hold exactly one value, as this value's array. */",
                      f"  protected {name}({w.elem}[] storage, Void adopt) {{",
                      f"    this(storage, {w.length});", "  }", "",
                      "  /**",
                      "   * Adopts {@code storage}, which must have the {@code length} of the generated class",
                      "   * being constructed. Package-private: only generated subclasses say their length.",
                      "   */",
                      f"  {name}({w.elem}[] storage, int length) {{",
                      "    if (storage == null) throw com.orvexa.internal.NativeCalls.nullArgument(\"storage\");",
                      "    if (storage.length != length) "
                      "throw com.orvexa.internal.NativeCalls.wrongLength(\"storage\", length, storage.length);",
                      "    this.array = storage;", "  }", ""]
        else:
            lines += ["  /** Adopts {@code storage}, which must hold exactly one value, as this value's array. */",
                      f"  protected {name}({w.elem}[] storage, Void adopt) {{",
                      f"    super(storage, {w.length});", "  }", "",
                      f"  {name}({w.elem}[] storage, int length) {{",
                      "    super(storage, length);", "  }", ""]
        lines += ["  /** A value viewing {@code storage}, which must hold exactly one value. */",
                  f"  public static {name} wrap({w.elem}[] storage) {{",
                  f"    return new {name}(storage, null);", "  }", "",
                  f"  /** A new value holding a copy of the toolkit value at {{@code address}}. */",
                  f"  static {name} copy(long address) {{",
                  f"    {name} value = wrap(new {w.elem}[{w.length}]);",
                  "    setValueFromHandle(value.array, address);",
                  "    return value;", "  }", "",
                  f"  /** Copies of {{@code count}} contiguous native values at {{@code address}}. */",
                  f"  static {name}[] copies(long address, int count) {{",
                  f"    {name}[] values = new {name}[count];",
                  f"    for (int i = 0; i < count; i++) values[i] = wrap(new {w.elem}[{w.length}]);",
                  "    toArrayImpl(values, address);",
                  "    return values;", "  }", ""]
    elif w.kind == "static":
        lines += ["  /** Static services only: subclasses may add their own. */",
                  f"  protected {name}() {{", "  }", ""]
    else:
        for member, jt in plan.field_members:
            lines += [f"  /** The toolkit field {{@code {member}}}; the container owns it. */",
                      f"  public final {jt} {member};", ""]
        for member in plan.output_members:
            lines += [f"  /** The engine output {{@code {member}}}; the engine owns it. */",
                      f"  public final com.orvexa.orvex.engines.SoEngineOutput {member};", ""]
        lines += [f"  protected {name}(com.orvexa.internal.NativeResourceHandle handle) {{",
                  "    super(handle);"]
        lines += [f'    {member} = fieldOf({jt}.class, "{member}");' for member, jt in plan.field_members]
        lines += [f'    {member} = getOutput("{member}");' for member in plan.output_members]
        lines += ["  }", ""]
        if w.kind == "owned":
            lines += ["  /** Wraps a native object that Java now owns (released with this wrapper); null for 0. */",
                      f"  static {name} adopt(long address) {{",
                      f"    return address == 0L ? null : com.orvexa.internal.ObjectManager.adopt({name}.class, "
                      "new NativeResourceHandle(address));", "  }", ""]
        if plan.to_array:
            ctor = plan.default_ctor().native_name
            lines += [f"  /** Copies of {{@code count}} contiguous native objects at {{@code address}}, owned by Java. */",
                      f"  static {name}[] copies(long address, int count) {{",
                      f"    {name}[] objects = new {name}[count];",
                      f"    for (int i = 0; i < count; i++) objects[i] = new {name}(new NativeResourceHandle({ctor}()));",
                      "    toArrayImpl(objects, address);",
                      "    return objects;", "  }", ""]

    for e in plan.enums:
        lines += [f"  /** The toolkit enumeration {{@code {e.cpp_name}}}; values come from the native side. */",
                  f"  public enum {e.name} {{"]
        consts = [f"    {c}(value({e.name}::get{c}))" for c, _ in e.constants]
        lines.append(",\n".join(consts) + ";")
        lines += ["", "    private final int value;", "",
                  f"    {e.name}(int value) {{", "      this.value = value;", "    }", "",
                  "    /** The toolkit's numeric value. */",
                  "    public int getValue() {", "      return value;", "    }", "",
                  "    /** The constant with that numeric value, or null. */",
                  f"    public static {e.name} fromValue(int value) {{",
                  f"      for ({e.name} c : values()) if (c.value == value) return c;",
                  "      return null;", "    }", "",
                  "    private static int value(java.util.function.IntSupplier nativeValue) {",
                  "      com.orvexa.orvex.Orvex.init();",
                  "      return nativeValue.getAsInt();", "    }", ""]
        lines += [f"    private static native int get{c}();" for c, _ in e.constants]
        lines += ["  }", ""]

    for child in plans:
        if child.outer == plan.name:
            child_imports, child_lines = _class_lines(child, fragments_dir, plans)
            imports += child_imports
            lines += [("  " + line) if line else line
                      for text in child_lines for line in text.split("\n")] + [""]

    eq = _equals_method(plan)
    for m in plan.wrapped_methods():
        if m.is_ctor:
            lines += _constructor(plan, m) + [""] + _default_overloads(plan, m) + _class_overload(plan, m)
        elif m is eq:
            continue
        else:
            lines += _public_method(plan, m) + [""] + _default_overloads(plan, m) + _class_overload(plan, m)

    if eq is not None:
        lines += ["  /** Equality as the toolkit's {@code operator==} defines it. */",
                  "  @Override", "  public boolean equals(Object o) {",
                  "    if (this == o) return true;",
                  "    if (o == null || o.getClass() != getClass()) return false;"]
        if w.kind == "value":
            lines += [f"    return {eq.native_name}(array, (({name}) o).array);", "  }", ""]
        else:
            lines += [f"    {name} other = ({name}) o;",
                      "    final long self = com.orvexa.internal.NativeCalls.begin(this, \"this\");",
                      "    try {",
                      "      final long otherHandle = com.orvexa.internal.NativeCalls.begin(other, \"o\");",
                      "      try {",
                      f"        return {eq.native_name}(self, otherHandle);",
                      "      } finally {", "        com.orvexa.internal.NativeCalls.end(other);", "      }",
                      "    } finally {", "      com.orvexa.internal.NativeCalls.end(this);", "    }", "  }", ""]
    if w.kind == "value" and plan.base_wrapped is None:
        if eq is None:
            lines += ["  @Override", "  public boolean equals(Object o) {",
                      "    if (this == o) return true;",
                      "    if (o == null || o.getClass() != getClass()) return false;",
                      f"    return java.util.Arrays.equals(array, (({name}) o).array);", "  }", ""]
        lines += ["  /** Consistent with {@link #equals}: 0 and -0 hash alike. */",
                  "  @Override", "  public int hashCode() {", "    int h = getClass().hashCode();",
                  f"    for ({w.elem} e : array) h = 31 * h + {JAVA_BOXED_HASH[w.elem]};",
                  "    return h;", "  }", "",
                  "  @Override", "  public String toString() {",
                  "    return getClass().getSimpleName() + java.util.Arrays.toString(array);", "  }", ""]
    elif eq is not None and w.kind != "value":
        lines += ["  /** Equal objects share only their class here; the toolkit compares the values. */",
                  "  @Override", "  public int hashCode() {", "    return getClass().hashCode();", "  }", ""]

    if closeable:
        lines += ["  /** Releases the native object now, as {@link #dispose()}; the object must not be used afterwards. */",
                  "  @Override", "  public void close() {", "    dispose();", "  }", ""]

    bulk = plan.rules.bulk.get(plan.name)
    if bulk is not None:
        lines += bulk_members(w.java_name, bulk)
        lines.append("")

    if fragment:
        lines.append("  // ---- hand-written members (" + "/".join(plan.package.split(".")) + f"/{w.java_name}.java fragment) ----")
        lines += fragment
        lines.append("")

    lines.append("  // ---- native entry points ----")
    if w.kind == "value":
        lines += ["  private static native void checkSize();", "",
                  f"  /** Copies the toolkit value at {{@code address}} into {{@code array}}. */",
                  f"  static native void setValueFromHandle({w.elem}[] array, long address);", "",
                  f"  /** Fills already constructed values from contiguous native values at {{@code address}}. */",
                  f"  static native void toArrayImpl({name}[] objects, long address);", ""]
    if plan.to_array:
        lines += [f"  /** Assigns the native objects at {{@code address}} to those of {{@code objects}}, in order. */",
                  f"  static native void toArrayImpl({name}[] objects, long address);", ""]
    if plan.class_type_id:
        lines += ["  /** The name of the toolkit type of this class. */",
                  "  public static native String getClassTypeId();", ""]
    for m in plan.wrapped_methods():
        ret = "void" if m.result.kind == "value" else m.result.java_type
        if m.is_ctor:
            ret = "void" if w.kind == "value" else "long"
        lines.append(f"  static native {ret} {m.native_name}({_native_params(plan, m)});")
    if w.kind == "owned":
        lines += ["", "  /** Releases the native object with the class's deleteNativeHandleImpl. */",
                  "  public static final class NativeResourceHandle extends com.orvexa.internal.NativeResourceHandle {",
                  "    NativeResourceHandle(long address) {", "      super(address);", "    }", "",
                  "    @Override", "    protected void releaseNative(long address) {",
                  "      deleteNativeHandleImpl(address);", "    }", "",
                  "    private static native void deleteNativeHandleImpl(long address);", "  }"]
    lines.append("}")
    return imports, lines
