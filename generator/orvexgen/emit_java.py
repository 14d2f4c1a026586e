"""Writes the Java half: the class with its native declarations, the public
methods that call them, and the hand-written fragment of the class, if any."""
from __future__ import annotations

import os
from typing import List, Optional, Sequence, Tuple

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


def _native_args(plan: ClassPlan, m: Method, returned: str = "") -> str:
    ps = []
    if m.receiver == "value":
        ps.append("array")
    elif m.receiver == "handle":
        ps.append("getNativeResourceHandleInternal()")
    ps += [a.public_expr for a in m.args]
    if returned:
        ps.append(returned)
    return ", ".join(ps)


def _new_value(java_type: str, elem: str, length: int) -> str:
    return f"{java_type}.wrap(new {elem}[{length}])"


def _public_method(plan: ClassPlan, m: Method) -> List[str]:
    r = m.result
    static = m.receiver == "none"
    name = m.group
    this_type = plan.java_simple
    if r.kind == "self":
        ret = this_type
    else:
        ret = r.public_type
    mods = f"{m.java_access} {'static ' if static else ''}"
    out = [f"  {mods}{ret} {name}({_public_params(m)}) {{"]
    call = f"{m.native_name}({_native_args(plan, m)})"
    k = r.kind
    if k == "void":
        out.append(f"    {call};")
    elif k == "self":
        out += [f"    {call};", "    return this;"]
    elif k in ("prim", "bool", "string", "sotype", "plist", "plist_ptr"):
        out.append(f"    return {call};")
    elif k == "enum":
        out.append(f"    return {r.enum_java}.fromValue({call});")
    elif k in ("handle", "handle_ref"):
        out.append(f"    return com.orvexa.internal.ObjectManager.getManagedObject({r.public_type}.class, {call});")
    elif k == "handle_owned":
        out.append(f"    return {r.public_type}.fromOwnedHandle({call});")
    elif k == "value":
        w = r.value_class
        out.append(f"    {r.public_type} returnedValue = {_new_value(r.public_type, w.elem, w.length)};")
        out.append(f"    {m.native_name}({_native_args(plan, m, 'returnedValue.array')});")
        out.append("    return returnedValue;")
    elif k == "array":
        element = r.public_type[:-2]
        out.append(f"    return {element}.toArray({call}, {m.array_count}());")
    elif k == "value_ref":
        w = r.value_class
        out.append(f"    {r.public_type} returnedValue = {_new_value(r.public_type, w.elem, w.length)};")
        out.append(f"    {r.public_type}.setValueFromHandle(returnedValue.array, {call});")
        out.append("    return returnedValue;")
    else:
        raise AssertionError(k)
    out.append("  }")
    return out


def _constructor(plan: ClassPlan, m: Method) -> List[str]:
    name = plan.java_simple
    out = [f"  public {name}({_public_params(m)}) {{"]
    args = ", ".join(a.public_expr for a in m.args)
    if plan.kind == "value":
        w = plan.wrapped
        out.append(f"    this(new {w.elem}[{w.length}], (Void) null);")
        out.append(f"    {m.native_name}({', '.join(['array'] + [a.public_expr for a in m.args])});")
    elif plan.kind == "refcounted":
        out.append(f"    super(new com.orvexa.internal.RefCountedNativeResourceHandle({m.native_name}({args})));")
    else:
        out.append(f"    super(new NativeResourceHandle({m.native_name}({args})));")
    out.append("  }")
    return out


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
    else:
        doc = f"Wrapper of the reference-counted toolkit class {{@code {plan.name}}}."
    lines += ["/**", f" * {doc}", " * Generated by orvexgen from the toolkit headers; do not edit.", " */"]
    ext = f" extends {plan.java_base}" if plan.java_base else ""
    lines.append(f"public {'static ' if plan.outer else ''}class {name}{ext} {{")
    lines += ["  static {", "    com.orvexa.orvex.Orvex.init();"]
    if w.kind == "value":
        lines.append("    checkSize();")
    lines += ["  }", ""]

    if w.kind == "value":
        if plan.base_wrapped is None:
            lines += ["  /** The value's storage: exactly the bytes of the toolkit value. */",
                      f"  public final {w.elem}[] array;", "",
                      "  /** Adopts {@code storage} (of the right length) as this value's array. */",
                      f"  protected {name}({w.elem}[] storage, Void adopt) {{",
                      "    this.array = storage;", "  }", ""]
        else:
            lines += [f"  protected {name}({w.elem}[] storage, Void adopt) {{",
                      "    super(storage, adopt);", "  }", ""]
        lines += ["  /** A value viewing {@code storage}, which must hold exactly one value. */",
                  f"  public static {name} wrap({w.elem}[] storage) {{",
                  f"    if (storage.length != {w.length}) {{",
                  f'      throw new IllegalArgumentException("{name} needs {w.length} elements, not " + storage.length);',
                  "    }",
                  f"    return new {name}(storage, null);", "  }", "",
                  f"  /** {w.length}-element copies of {{@code count}} contiguous native values at {{@code address}}. */",
                  f"  public static {name}[] toArray(long address, int count) {{",
                  f"    {name}[] values = new {name}[count];",
                  f"    for (int i = 0; i < count; i++) values[i] = wrap(new {w.elem}[{w.length}]);",
                  "    toArrayImpl(values, address);",
                  "    return values;", "  }", ""]
    else:
        lines += [f"  protected {name}(com.orvexa.internal.NativeResourceHandle handle) {{",
                  "    super(handle);", "  }", ""]
        if w.kind == "owned":
            lines += ["  /** Wraps a native object that Java now owns (released with this wrapper). */",
                      f"  public static {name} fromOwnedHandle(long address) {{",
                      f"    return address == 0L ? null : new {name}(new NativeResourceHandle(address));", "  }", ""]
        if plan.to_array:
            ctor = plan.default_ctor().native_name
            lines += [f"  /** Copies of {{@code count}} contiguous native objects at {{@code address}}, owned by Java. */",
                      f"  public static {name}[] toArray(long address, int count) {{",
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
            lines += _constructor(plan, m) + [""]
        elif m is eq:
            continue
        else:
            lines += _public_method(plan, m) + [""]

    if eq is not None:
        other = "((" + name + ") o)." + ("array" if w.kind == "value" else "getNativeResourceHandleInternal()")
        lines += ["  /** Equality as the toolkit's {@code operator==} defines it. */",
                  "  @Override", "  public boolean equals(Object o) {",
                  "    if (this == o) return true;",
                  "    if (o == null || o.getClass() != getClass()) return false;",
                  f"    return {eq.native_name}({'array' if w.kind == 'value' else 'getNativeResourceHandleInternal()'}, "
                  f"{other});", "  }", ""]
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

    if fragment:
        lines.append("  // ---- hand-written members (" + "/".join(plan.package.split(".")) + f"/{w.java_name}.java fragment) ----")
        lines += fragment
        lines.append("")

    lines.append("  // ---- native entry points ----")
    if w.kind == "value":
        lines += ["  private static native void checkSize();", "",
                  f"  /** Copies the toolkit value at {{@code address}} into {{@code array}}. */",
                  f"  public static native void setValueFromHandle({w.elem}[] array, long address);", "",
                  f"  /** Fills already constructed values from contiguous native values at {{@code address}}. */",
                  f"  public static native void toArrayImpl({name}[] objects, long address);", ""]
    if plan.to_array:
        lines += [f"  /** Assigns the native objects at {{@code address}} to those of {{@code objects}}, in order. */",
                  f"  public static native void toArrayImpl({name}[] objects, long address);", ""]
    if plan.class_type_id:
        lines += ["  /** The name of the toolkit type of this class. */",
                  "  public static native String getClassTypeId();", ""]
    for m in plan.wrapped_methods():
        ret = m.result.java_type
        if m.is_ctor:
            ret = "void" if w.kind == "value" else "long"
        lines.append(f"  static native {ret} {m.native_name}({_native_params(plan, m)});")
    if w.kind == "owned":
        lines += ["", "  /** Releases the native object with the class's deleteNativeHandleImpl. */",
                  "  public static class NativeResourceHandle extends com.orvexa.internal.NativeResourceHandle {",
                  "    public NativeResourceHandle(long address) {", "      super(address);", "    }", "",
                  "    @Override", "    protected void releaseNative(long address) {",
                  "      deleteNativeHandleImpl(address);", "    }", "",
                  "    private static native void deleteNativeHandleImpl(long address);", "  }"]
    lines.append("}")
    return imports, lines
