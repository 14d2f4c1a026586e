"""How each kind of C++ type crosses the boundary, both ways.

One `Conversion` object per kind of type holds every piece of code that
moves such a value between the worlds:

  Java -> C++, as the argument of a Java call:
    java_checks(p)        the public Java method's boundary checks (null,
                          array length), so that the native body, which
                          checks nothing, gets what it assumes
    java_begin(p)/java_end(p)  statements around the native call (marking a
                          call in flight on an object argument)
    java_pass(p)          the expression handed to the native method
    java_after(p, ctx)    statements after the native call (a Java list the
                          caller passed is filled)
    cpp_pre(p)/cpp_arg(p)/cpp_post(p)  the entry point's helpers, the toolkit
                          argument, and what is written back after the call
  C++ -> Java, as the result of a Java call:
    cpp_result(expr)      lines of the entry point defining `result`
    java_result(call)     lines of the public Java method returning it
  C++ -> Java, as the argument of a call into Java (callbacks, overrides),
  which receives the public Java value:
    upcall_cpp(expr, name)  (setup lines, JNI value, local reference to
                          delete?) handed to Call<T>Method; public_sig is its
                          JNI signature
  Java -> C++, as the result of a call into Java:
    cpp_from_upcall(jexpr, holder)  the C++ value made from the JNI result
                          (call_kind names the Call<T>Method returning it)

`java_type` is the Java type of the native declaration, `public_type` that of
the public Java method, `jni_type` the C type of the entry point and
`jni_sig` the JNI signature letter(s) of the native form.
"""
from __future__ import annotations

from dataclasses import dataclass
from typing import Callable, List, Tuple

READ_WRITE = "ArrayHelper::READ_WRITE"
READ_ONLY = "ArrayHelper::READ_ONLY"

JNI_ARRAY = {"float": "jfloatArray", "double": "jdoubleArray", "int": "jintArray", "short": "jshortArray",
             "byte": "jbyteArray", "long": "jlongArray", "boolean": "jbooleanArray", "char": "jcharArray"}
JNI_SIG = {"float": "F", "double": "D", "int": "I", "short": "S", "byte": "B", "long": "J", "boolean": "Z",
           "char": "C", "void": "V"}
JNI_SCALAR = {"float": "jfloat", "double": "jdouble", "int": "jint", "short": "jshort", "byte": "jbyte",
              "long": "jlong", "boolean": "jboolean", "char": "jchar"}
CALL_SUFFIX = {"float": "Float", "double": "Double", "int": "Int", "short": "Short", "byte": "Byte",
               "long": "Long", "boolean": "Boolean", "char": "Char", "void": "Void"}


class Unsupported(Exception):
    """The type has no conversion rule; the member is not wrapped."""


@dataclass
class WrappedClass:
    """What other classes need to know about a wrapped class. A nested C++
    class ("SoErrorStack::StackFrame") is a nested Java class
    (SoErrorStack.StackFrame in source, SoErrorStack$StackFrame in binary form)."""
    name: str                 # C++ name, qualified with the enclosing classes
    package: str
    kind: str                 # value | owned | refcounted | static (services: static members only)
    elem: str = ""            # Java element type of a value class
    length: int = 0           # array length of a value class
    java: str = ""            # the Java class name when it is not the C++ one (SoSFInt32 -> SoSFInt)
    carried: bool = False     # no Java class of its own: the class named by `java` stands for it

    @property
    def java_name(self) -> str:
        return self.java or self.name.replace("::", ".")

    @property
    def binary_name(self) -> str:
        return self.java.replace(".", "$") if self.java else self.name.replace("::", "$")

    @property
    def qualified(self) -> str:
        return f"{self.package}.{self.java_name}"

    @property
    def binary_qualified(self) -> str:
        return f"{self.package}.{self.binary_name}"


def raw_access(w: WrappedClass, from_package: str) -> str:
    """How generated code reaches the package-private raw-address members
    (copying values, adopting owned objects) of class `w`: directly in its
    own package, through the internal registry from other packages."""
    if w.package == from_package:
        return w.java_name
    return f"com.orvexa.internal.NativeAccess.of({w.qualified}.class)"


class Conversion:
    kind = "?"
    java_type = "void"
    public_type = "void"
    jni_type = "void"
    jni_sig = "V"

    # ---- Java -> C++ (argument) ----
    def java_checks(self, p: str) -> List[str]:
        return []

    def java_checks_in_call(self, p: str) -> List[str]:
        """Checks that need the receiver's address (`self`), marked in flight."""
        return []

    def java_begin(self, p: str) -> List[str]:
        return []

    def java_end(self, p: str) -> List[str]:
        return []

    def java_pass(self, p: str) -> str:
        return p

    def java_after(self, p: str, ctx: "JavaContext") -> List[str]:
        """Statements after a successful native call (filling a Java list the
        caller passed); the native result is in `nativeResult` meanwhile."""
        return []

    def cpp_pre(self, p: str) -> List[str]:
        return []

    def cpp_arg(self, p: str) -> str:
        raise Unsupported(f"{self.kind} is not an argument")

    def cpp_post(self, p: str) -> List[str]:
        return []

    # ---- C++ -> Java (result) ----
    def cpp_result(self, expr: str) -> List[str]:
        raise Unsupported(f"{self.kind} is not a result")

    def java_result(self, call: Callable[[List[str]], str], ctx: "JavaContext") -> List[str]:
        """`call(extra)` spells the native call, with `extra` arguments appended."""
        return [f"return {call([])};"]

    # ---- C++ -> Java (argument of a call into Java: the public Java value) ----
    # public_sig: the JNI signature of the public Java type; call_kind: the
    # <Type> of the env->Call<Type>Method that returns it.
    public_sig = "V"
    call_kind = "Void"

    def upcall_cpp(self, expr: str, name: str) -> Tuple[List[str], str, bool]:
        """(setup lines, the JNI value, whether it is a local reference to delete)."""
        raise Unsupported(f"{self.kind} cannot be handed to Java")

    # ---- Java -> C++ (result of a call into Java) ----
    def cpp_from_upcall(self, jexpr: str, holder: str) -> str:
        """The C++ result made from the JNI result `jexpr` of the Java call;
        `holder` names a member that can keep returned text alive."""
        raise Unsupported(f"{self.kind} cannot come back from Java")


@dataclass
class JavaContext:
    """What a Java result conversion needs to know about the method it is in."""
    package: str
    self_type: str
    array_count: str = ""
    lender: str = ""          # the receiver that lends the owned objects its members return
    until_renewed: bool = False   # ... only until the receiver's next renewal
    caller_owns: bool = False     # an owned result is a new object the caller owns


class Void(Conversion):
    kind = "void"

    def cpp_result(self, expr):
        return [f"{expr};"]

    def java_result(self, call, ctx):
        return [f"{call([])};"]

    def cpp_from_upcall(self, jexpr, holder):
        return ""


class Self(Void):
    """A member returning *this: the Java method returns `this`."""
    kind = "self"

    def java_result(self, call, ctx):
        return [f"{call([])};", "return this;"]


class Primitive(Conversion):
    kind = "prim"

    def __init__(self, cpp: str, java: str):
        self.cpp = cpp
        self.java_type = self.public_type = java
        self.jni_type = JNI_SCALAR[java]
        self.jni_sig = self.public_sig = JNI_SIG[java]
        self.call_kind = CALL_SUFFIX[java]

    def cpp_arg(self, p):
        return f"static_cast<{self.cpp}>({p})"

    def cpp_result(self, expr):
        return [f"const {self.jni_type} result = static_cast<{self.jni_type}>({expr});"]

    def upcall_cpp(self, expr, name):
        return [], f"static_cast<{self.jni_type}>({expr})", False

    def cpp_from_upcall(self, jexpr, holder):
        return f"static_cast<{self.cpp}>({jexpr})"


class Index(Primitive):
    """An int that indexes something of the receiver: checked against its bound
    ("getNumChildren()", or "<= getNumChildren()" for an insertion position)."""
    kind = "prim"

    def __init__(self, cpp: str, bound: str):
        super().__init__(cpp, "int")
        self.inclusive = bound.strip().startswith("<=")
        self.bound = bound.strip()[2:].strip() if self.inclusive else bound.strip()

    # The bound as an expression over the receiver's address (`self`), set
    # when the bound is a query whose entry point can be called directly:
    # the check then runs inside the call's bracket.
    bound_in_call = ""

    def java_checks(self, p):
        return [] if self.bound_in_call else self._check(p, self.bound)

    def java_checks_in_call(self, p):
        if not self.bound_in_call:
            return []
        return [f"final int {p}Bound = {self.bound_in_call};"] + self._check(p, f"{p}Bound")

    def _check(self, p, bound):
        op = ">" if self.inclusive else ">="
        return [f"if ({p} < 0 || {p} {op} {bound}) throw new IndexOutOfBoundsException("
                f"\"{p} \" + {p} + \" outside 0..\" + ({bound}{'' if self.inclusive else ' - 1'}));"]


class Bool(Conversion):
    kind = "bool"
    java_type = public_type = "boolean"
    jni_type = "jboolean"
    jni_sig = public_sig = "Z"
    call_kind = "Boolean"

    def cpp_arg(self, p):
        return f"{p} != JNI_FALSE"

    def cpp_result(self, expr):
        return [f"const jboolean result = {expr} ? JNI_TRUE : JNI_FALSE;"]

    def upcall_cpp(self, expr, name):
        return [], f"static_cast<jboolean>(({expr}) ? JNI_TRUE : JNI_FALSE)", False

    def cpp_from_upcall(self, jexpr, holder):
        return f"({jexpr} != JNI_FALSE)"


class Enum(Conversion):
    """Enumerators cross as their int value; Java sees the nested enum."""
    kind = "enum"
    java_type = "int"
    jni_type = "jint"
    jni_sig = "I"

    call_kind = "Object"

    def __init__(self, cpp: str, java: str, binary: str = ""):
        self.cpp = cpp
        self.public_type = self.enum_java = java
        self.binary = binary      # "com.orvexa.genprobe.GuardProbe$Mode"
        self.public_sig = f"L{binary.replace('.', '/')};"

    def java_checks(self, p):
        return [null_check(p)]

    def java_pass(self, p):
        return f"{p}.getValue()"

    def cpp_arg(self, p):
        return f"static_cast<{self.cpp}>({p})"

    def cpp_result(self, expr):
        return [f"const jint result = static_cast<jint>({expr});"]

    def java_result(self, call, ctx):
        return [f"return {self.enum_java}.fromValue({call([])});"]

    def upcall_cpp(self, expr, name):
        return [], f'ObjectHelper::getEnum(env, "{self.binary}", static_cast<jint>({expr}))', True

    def cpp_from_upcall(self, jexpr, holder):
        return f"static_cast<{self.cpp}>(ObjectHelper::getEnumValue(env, {jexpr}))"


class String(Conversion):
    """SbString, SbName and const char*: UTF-8 through a StringHelper."""
    kind = "string"
    java_type = public_type = "String"
    jni_type = "jstring"
    jni_sig = public_sig = "Ljava/lang/String;"
    call_kind = "Object"

    def __init__(self, cpp: str, nullable: bool = False):
        self.cpp = cpp            # SbString | SbName | const char*
        self.nullable = nullable

    def java_checks(self, p):
        if self.nullable:
            return []
        return [null_check(p)]

    def cpp_pre(self, p):
        lines = [f"StringHelper {p}StrHelper(env, {p});"]
        if self.cpp == "SbString":
            lines.append(f"const SbString {p}NativeArg({p}StrHelper.toUnicodeString());")
        elif self.cpp == "SbName":
            lines.append(f"const SbName {p}NativeArg({p}StrHelper.toUTFString());")
        return lines

    def cpp_arg(self, p):
        return f"{p}StrHelper.toUTFString()" if self.cpp == "const char*" else f"{p}NativeArg"

    def cpp_result(self, expr):
        return [f"const jstring result = StringHelper::fromNativeString(env, {expr});"]

    def upcall_cpp(self, expr, name):
        return [], f"StringHelper::fromNativeString(env, {expr})", True

    def cpp_from_upcall(self, jexpr, holder):
        # Java's text is copied out before the local reference goes; a
        # character pointer stays valid in the holder until the next call.
        text = f"StringHelper(env, static_cast<jstring>({jexpr})).toUTFString()"
        if self.cpp == "const char*":
            return f"({jexpr} == nullptr ? nullptr : ({holder} = {text}).c_str())"
        return f"{self.cpp}({jexpr} == nullptr ? \"\" : {text})"


class Format(String):
    """The format of a variadic toolkit function: the Java text is made safe
    for the formatter (conversions that would read or write through pointers
    that were never passed print literally) and gets zero arguments."""
    kind = "format"

    def __init__(self):
        super().__init__("const char*")

    def cpp_pre(self, p):
        return [f"StringHelper {p}StrHelper(env, {p});", f"const SafeFormat {p}Safe({p}StrHelper.toUTFString());"]

    def cpp_arg(self, p):
        return f"{p}Safe.get(), ORVEX_SAFE_FORMAT_ARGS"


class TypeName(Conversion):
    """SoType, given and returned by name.

    As an argument the public Java method takes the toolkit type's name
    ("Sphere", "SoSearchAction"); every method with such arguments also has
    an overload taking the wrapper classes instead (`SoSphere.class`), whose
    type is the name that the class's static getClassTypeId() answers. As a
    result Java gets the type's name as a String: a name is what every Java
    class of the binding can be asked for (getClassTypeId) and compared with,
    while a toolkit type may have no Java class at all (types of plug-ins,
    types read from files), so a Class result could not stand for every
    type. An unknown name is the toolkit's bad type, which matches nothing."""
    kind = "sotype"
    java_type = public_type = "String"
    jni_type = "jstring"
    jni_sig = "Ljava/lang/String;"
    # The overload's parameter type, and how it becomes the name.
    alt_public_type = "Class<? extends com.orvexa.orvex.Orvex>"

    def alt_convert(self, p):
        return f"com.orvexa.internal.TypeNames.of({p}, \"{p}\")"

    def java_checks(self, p):
        return [null_check(p)]

    def cpp_pre(self, p):
        return [f"StringHelper {p}TypeNameHelper(env, {p});"]

    def cpp_arg(self, p):
        return f"SoType::fromName(SbName({p}TypeNameHelper.toUTFString()))"

    def cpp_result(self, expr):
        return [f"const jstring result = StringHelper::fromNativeString(env, ({expr}).getName());"]

    public_sig = "Ljava/lang/String;"
    call_kind = "Object"

    def upcall_cpp(self, expr, name):
        return [], f"StringHelper::fromNativeString(env, ({expr}).getName())", True


class OneElementOut(Conversion):
    """A Java array whose element 0 receives what the toolkit hands back
    through a reference parameter: it must exist."""

    def java_checks(self, p):
        return [null_check(p),
                f"if ({p}.length < 1) throw com.orvexa.internal.NativeCalls.tooShort(\"{p}\", 1, {p}.length);"]


class OutString(OneElementOut):
    """A non-const SbString& or SbName& the toolkit writes: a one-element
    String[] that receives the text after the call."""
    kind = "out_string"
    java_type = public_type = "String[]"
    jni_type = "jobjectArray"
    jni_sig = "[Ljava/lang/String;"

    def __init__(self, cpp: str):
        self.cpp = cpp            # SbString | SbName

    def cpp_pre(self, p):
        return [f"{self.cpp} {p}Tmp;"]

    def cpp_arg(self, p):
        return f"{p}Tmp"

    def cpp_post(self, p):
        return ["{",
                f"  const jstring {p}Text = StringHelper::fromNativeString(env, {p}Tmp);",
                f"  env->SetObjectArrayElement({p}, 0, {p}Text);",
                f"  env->DeleteLocalRef({p}Text);",
                "}"]


class Handle(Conversion):
    """A pointer or reference to a handle-backed object: its address as long.
    As an argument the object is marked in flight for the call (it cannot be
    freed under it); a reference, or a pointer the toolkit does not accept as
    null, rejects null."""
    kind = "handle"
    java_type = "long"
    jni_type = "jlong"
    jni_sig = "J"

    def __init__(self, w: WrappedClass, java_name: str, cpp_class: str, by_ref: bool, nullable: bool,
                 applied: bool = False):
        self.w = w
        self.public_type = java_name
        self.cpp_class = cpp_class
        self.by_ref = by_ref
        self.nullable = nullable and not by_ref
        self.handle_class = w
        # An action handed to a node's traversal method must be traversing:
        # outside apply() it has no state for the node to work on.
        self.applied = applied
        if by_ref:
            self.kind = "handle_ref"

    def java_checks(self, p):
        if not self.applied:
            return []
        return [f"if ({p} != null && !{p}.isBeingApplied()) "
                f"throw new IllegalStateException(\"{p} is not being applied\");"]

    def java_begin(self, p):
        if self.nullable:
            return [f"final long {p}Handle = com.orvexa.internal.NativeCalls.beginOrNull({p});"]
        return [f"final long {p}Handle = com.orvexa.internal.NativeCalls.begin({p}, \"{p}\");"]

    def java_end(self, p):
        return [f"com.orvexa.internal.NativeCalls.end({p});"]

    def java_pass(self, p):
        return f"{p}Handle"

    def cpp_arg(self, p):
        cast = f"reinterpret_cast<{self.cpp_class}*>({p})"
        return f"*{cast}" if self.by_ref else cast

    def cpp_result(self, expr):
        if self.by_ref:
            return [f"const jlong result = reinterpret_cast<jlong>(&({expr}));"]
        return [f"const jlong result = reinterpret_cast<jlong>({expr});"]

    def java_result(self, call, ctx):
        if self.w.kind == "owned" and ctx.caller_owns:
            return [f"return {raw_access(self.w, ctx.package)}.adopt({call([])});"]
        if self.w.kind == "owned" and ctx.lender:
            # An owned object a member hands out belongs to the receiver (an
            # action's picked point, a container's field): its wrapper's calls
            # need the receiver alive, and keep it so.
            lookup = "getLentObjectUntilRenewed" if ctx.until_renewed else "getLentObject"
            return [f"return com.orvexa.internal.ObjectManager.{lookup}({self.public_type}.class, "
                    f"{call([])}, {ctx.lender});"]
        return [f"return com.orvexa.internal.ObjectManager.getManagedObject({self.public_type}.class, {call([])});"]

    call_kind = "Object"

    @property
    def public_sig(self):
        return f"L{self.w.binary_qualified.replace('.', '/')};"

    def upcall_cpp(self, expr, name):
        # The one Java object that stands for the address (the object manager's).
        target = f"&({expr})" if self.by_ref else f"({expr})"
        return ([], f'ObjectHelper::getManagedObject(env, "{self.w.binary_qualified}", '
                    f'reinterpret_cast<jlong>(const_cast<{self.cpp_class}*>({target})))', True)

    def cpp_from_upcall(self, jexpr, holder):
        # The address of the Java object's native object (entry 0 of the
        # method-identifier table is getNativeResourceHandleInternal).
        cast = (f"reinterpret_cast<{self.cpp_class}*>({jexpr} == nullptr ? 0 : "
                f"env->CallLongMethod({jexpr}, s_methodIds[0]))")
        return f"*{cast}" if self.by_ref else cast


class OwnedCopy(Conversion):
    """An owned class returned by value: a heap copy that Java owns."""
    kind = "handle_owned"
    java_type = "long"
    jni_type = "jlong"
    jni_sig = "J"

    def __init__(self, w: WrappedClass, java_name: str, cpp_class: str):
        self.w = w
        self.public_type = java_name
        self.cpp_class = cpp_class
        self.handle_class = w

    def cpp_result(self, expr):
        return [f"const jlong result = reinterpret_cast<jlong>(new {self.cpp_class}({expr}));"]

    def java_result(self, call, ctx):
        return [f"return {raw_access(self.w, ctx.package)}.adopt({call([])});"]


class Value(Conversion):
    """An array-backed value type: its array, pinned and used as the toolkit
    value. A const operand is only read (READ_ONLY) unless the rules keep it
    READ_WRITE; an output operand is always copied back."""
    kind = "value"

    def __init__(self, w: WrappedClass, java_name: str, cpp_class: str, mode: str):
        self.w = w
        self.value_class = w
        self.public_type = java_name
        self.cpp_class = cpp_class
        self.mode = mode
        self.java_type = w.elem + "[]"
        self.jni_type = JNI_ARRAY[w.elem]
        self.jni_sig = "[" + JNI_SIG[w.elem]

    def java_checks(self, p):
        # A value's array always has its class's length (constructors check it).
        return [null_check(p)]

    def java_pass(self, p):
        return f"{p}.array"

    def cpp_pre(self, p):
        return [f"ArrayHelper {p}Helper(env);"]

    def cpp_arg(self, p):
        return f"*reinterpret_cast<{self.cpp_class}*>({p}Helper.toNativeArray({p}, {self.mode}))"

    # As a result, written into the returned-value array the Java side passes.
    def cpp_result(self, expr):
        return [f"const {self.cpp_class} resultValue = {expr};",
                "ArrayHelper returnedValueHelper(env);",
                f"*reinterpret_cast<{self.cpp_class}*>(returnedValueHelper.toNativeArray(returnedValue, "
                f"{READ_WRITE})) = resultValue;"]

    def java_result(self, call, ctx):
        w = self.w
        return [f"{self.public_type} returnedValue = {self.public_type}.wrap(new {w.elem}[{w.length}]);",
                f"{call(['returnedValue.array'])};",
                "return returnedValue;"]

    call_kind = "Object"

    @property
    def public_sig(self):
        return f"L{self.w.binary_qualified.replace('.', '/')};"

    def upcall_cpp(self, expr, name):
        # A new Java value holding a copy: the class's wrap(array) over a new array.
        w = self.w
        native_elem = "unsigned char" if w.elem == "byte" else w.elem
        cls = w.binary_qualified.replace(".", "/")
        return ([f"jobject {name}Value = nullptr;",
                 "{",
                 f"  ScopedLocalRef<{JNI_ARRAY[w.elem]}> storage(env, ArrayHelper::fromNativeArray(env, "
                 f"reinterpret_cast<const {native_elem}*>(&({expr})), {w.length}));",
                 f'  ScopedLocalRef<jclass> cls(env, env->FindClass("{cls}"));',
                 f'  const jmethodID wrap = env->GetStaticMethodID(cls.get(), "wrap", "([{JNI_SIG[w.elem]}){self.public_sig}");',
                 f"  {name}Value = env->CallStaticObjectMethod(cls.get(), wrap, storage.get());",
                 "}"], f"{name}Value", True)

    def cpp_from_upcall(self, jexpr, holder):
        # The bytes of the returned value's array, or the default value for null.
        w = self.w
        region = {"float": "Float", "double": "Double", "int": "Int", "short": "Short", "byte": "Byte",
                  "long": "Long"}[w.elem]
        cls = w.binary_qualified.replace(".", "/")
        return (f"[&] {{ {self.cpp_class} v{{}}; if ({jexpr} != nullptr) {{ "
                f'ScopedLocalRef<jclass> cls(env, env->FindClass("{cls}")); '
                f'ScopedLocalRef<{JNI_ARRAY[w.elem]}> a(env, static_cast<{JNI_ARRAY[w.elem]}>(env->GetObjectField({jexpr}, '
                f'env->GetFieldID(cls.get(), "array", "[{JNI_SIG[w.elem]}")))); '
                f"env->Get{region}ArrayRegion(a.get(), 0, {w.length}, reinterpret_cast<{JNI_SCALAR[w.elem]}*>(&v)); }} "
                f"return v; }}()")


class ValueRef(Conversion):
    """A reference to a value the toolkit holds: its address, copied on the
    Java side into a new value."""
    kind = "value_ref"
    java_type = "long"
    jni_type = "jlong"
    jni_sig = "J"

    def __init__(self, w: WrappedClass, java_name: str, cpp_class: str):
        self.w = w
        self.value_class = w
        self.public_type = java_name
        self.cpp_class = cpp_class

    def cpp_result(self, expr):
        return [f"const jlong result = reinterpret_cast<jlong>(&({expr}));"]

    def java_result(self, call, ctx):
        return [f"return {raw_access(self.w, ctx.package)}.copy({call([])});"]


class PrimArray(Conversion):
    """A primitive Java array pinned for the call. `length` is the number of
    Java elements the toolkit reads or writes: a constant for C arrays, a
    Java expression over the other parameters for counted pointers."""
    kind = "array"

    def __init__(self, jelem: str, cpp: str, mode: str, length: str, exact: bool):
        self.jelem = jelem
        self.cpp = cpp              # the C++ expression type the pinned storage is cast to ("float(*)[4]")
        self.mode = mode
        self.length = length
        self.exact = exact
        self.java_type = self.public_type = jelem + "[]"
        self.jni_type = JNI_ARRAY[jelem]
        self.jni_sig = "[" + JNI_SIG[jelem]
        self.deref = False

    def java_checks(self, p):
        if not self.exact:
            return _length_checks(p, self.length)
        return [null_check(p),
                f"if ({p}.length != {self.length}) "
                f"throw com.orvexa.internal.NativeCalls.wrongLength(\"{p}\", {self.length}, {p}.length);"]

    def cpp_pre(self, p):
        return [f"ArrayHelper {p}ArrayHelper(env);"]

    def cpp_arg(self, p):
        pinned = f"{p}ArrayHelper.toNativeArray({p}, {self.mode})"
        cast = f"reinterpret_cast<{self.cpp}>({pinned})"
        return f"*{cast}" if self.deref else cast


def null_check(p: str) -> str:
    """The check of an argument the toolkit does not accept as null."""
    return f"if ({p} == null) throw com.orvexa.internal.NativeCalls.nullArgument(\"{p}\");"


def _length_checks(p: str, length: str) -> List[str]:
    """A Java array that must hold at least `length` elements."""
    checks = [null_check(p)]
    if length.isidentifier():   # a count the caller passes: never negative
        checks.append(f"if ({length} < 0) throw new IllegalArgumentException("
                      f"\"{length} \" + {length} + \" is negative\");")
    return checks + [
            f"if ((long) {p}.length < (long) ({length})) "
            f"throw com.orvexa.internal.NativeCalls.tooShort(\"{p}\", {length}, {p}.length);"]


class HandleArray(Conversion):
    """An array of handle-backed objects (`T**`) with the number of elements
    the toolkit reads: a long[] of addresses, every object marked in flight
    for the call; null elements pass as null."""
    kind = "handle_array"
    java_type = "long[]"
    jni_type = "jlongArray"
    jni_sig = "[J"

    def __init__(self, java_name: str, cpp_elem: str, length: str):
        self.public_type = java_name + "[]"
        self.cpp_elem = cpp_elem
        self.length = length

    def java_checks(self, p):
        return _length_checks(p, self.length)

    def java_begin(self, p):
        # A copy: the caller's array may change while the call runs, and the
        # objects marked must be the ones unmarked.
        return [f"final com.orvexa.orvex.Orvex[] {p}Objects = {p}.clone();",
                f"final long[] {p}Handles = com.orvexa.internal.NativeCalls.beginAll({p}Objects);"]

    def java_end(self, p):
        return [f"com.orvexa.internal.NativeCalls.endAll({p}Objects);"]

    def java_pass(self, p):
        return f"{p}Handles"

    def cpp_pre(self, p):
        return [f"ArrayHelper {p}HandleArrayHelper(env);"]

    def cpp_arg(self, p):
        return f"reinterpret_cast<{self.cpp_elem}*>({p}HandleArrayHelper.toNativeArray({p}, {READ_WRITE}))"


class StringArray(Conversion):
    kind = "string_array"
    java_type = public_type = "String[]"
    jni_type = "jobjectArray"
    jni_sig = "[Ljava/lang/String;"

    def __init__(self, length: str, utf8_pointer: str = ""):
        self.length = length
        self.utf8_pointer = utf8_pointer   # "const char**" spelling, or "" for SbString arrays

    def java_checks(self, p):
        return _length_checks(p, self.length) + [
                f"for (int i = 0; i < {p}.length; i++) if ({p}[i] == null) "
                f"throw com.orvexa.internal.NativeCalls.nullArgument(\"{p}[\" + i + \"]\");"]

    def cpp_pre(self, p):
        return [f"StringArrayHelper {p}Helper(env, {p});"]

    def cpp_arg(self, p):
        if self.utf8_pointer:
            return f"const_cast<{self.utf8_pointer}>({p}Helper.toUTFStringArray())"
        return f"{p}Helper.toSbStringArray()"


class OutScalar(OneElementOut):
    """A non-const reference to a scalar: a one-element Java array that
    receives the value after the call."""
    kind = "out"

    def __init__(self, jelem: str, ctype: str, store: str):
        self.java_type = self.public_type = jelem + "[]"
        self.jni_type = JNI_ARRAY[jelem]
        self.ctype = ctype
        self.store = store        # C++ expression over `<p>Tmp`, with {p} for the name

    def cpp_pre(self, p):
        return [f"{self.ctype} {p}Tmp{{}};"]

    def cpp_arg(self, p):
        return f"{p}Tmp"

    def cpp_post(self, p):
        return [f"ArrayHelper {p}ArrayHelper(env);",
                f"*{p}ArrayHelper.toNativeArray({p}, {READ_WRITE}) = {self.store.format(p=p)};"]


class IntBuffer(OneElementOut):
    """`const int*&` next to its `int&` count (getPathCode): the toolkit's own
    memory as a direct byte buffer of count x 4 bytes, handed back in element
    0 of a one-element array (null when the toolkit gives no indices). The
    count is no Java argument: it is the buffer's capacity. The Java method
    hands its caller a copy in a buffer of its own, in the platform's byte
    order (the order of the ints): the toolkit's memory changes with the
    traversal and goes with the action, while the copy stays readable."""
    kind = "int_buffer"
    java_type = "Object[]"
    public_type = "java.nio.ByteBuffer[]"
    jni_type = "jobjectArray"

    def __init__(self, count: str, count_first: bool = True):
        self.count = count
        self.count_first = count_first

    def java_after(self, p, ctx):
        return [f"if ({p}[0] != null) {p}[0] = com.orvexa.internal.NativeCalls.copyOfInts({p}[0]);"]

    def cpp_pre(self, p):
        return [f"int {self.count}Tmp = 0;", f"const int* {p}Tmp = nullptr;"]

    def cpp_arg(self, p):
        return f"{self.count}Tmp, {p}Tmp" if self.count_first else f"{p}Tmp, {self.count}Tmp"

    def cpp_post(self, p):
        return [f"env->SetObjectArrayElement({p}, 0, {p}Tmp == nullptr ? nullptr : "
                f"env->NewDirectByteBuffer(const_cast<int*>({p}Tmp), static_cast<jlong>({self.count}Tmp) * 4));"]


def _addresses_of(list_expr: str, out: str) -> List[str]:
    """Lines making `out`, a new long[] of the element addresses of the list
    at `list_expr` (a pointer), in list order."""
    return [f"std::vector<long long> addresses(static_cast<size_t>({list_expr}->getLength()));",
            "for (size_t i = 0; i < addresses.size(); ++i)",
            f"  addresses[i] = reinterpret_cast<long long>({list_expr}->get(static_cast<int>(i)));",
            f"{out} = addresses.empty() ? env->NewLongArray(0)",
            "    : ArrayHelper::fromNativeArray(env, addresses.data(), addresses.size());"]


class PointerList(Conversion):
    """A pointer list of the toolkit whose elements are not objects of a
    wrapped class (SbPList itself): the element addresses in list order,
    null for no list."""
    kind = "plist"
    java_type = public_type = "long[]"
    jni_type = "jlongArray"
    jni_sig = "[J"

    def __init__(self, by_pointer: bool, cpp_class: str = "SbPList"):
        self.by_pointer = by_pointer
        self.cpp_class = cpp_class
        if by_pointer:
            self.kind = "plist_ptr"

    def cpp_result(self, expr):
        if self.by_pointer:
            head = [f"const {self.cpp_class}* list = {expr};"]
        else:  # by value or by reference: bind it (a temporary lives as long as the reference)
            head = [f"const {self.cpp_class}& listValue = {expr};", f"const {self.cpp_class}* list = &listValue;"]
        return head + ["jlongArray result = nullptr;", "if (list != nullptr) {"] + \
            ["  " + line for line in _addresses_of("list", "result")] + ["}"]


@dataclass
class ListType:
    """A toolkit list class whose elements are objects of a wrapped class:
    SoPathList of SoPath, SoNodeList and SoChildList of SoNode, SoFieldList of
    SoField, SoPickedPointList of SoPickedPoint. It has getLength() and get(i)."""
    cpp: str                  # the list class
    elem: WrappedClass        # the element class
    elem_java: str            # its Java name where the member is
    elem_cpp: str
    unreferenced: bool        # an SoBaseList: a local one is told not to reference its elements
    appendable: bool          # has append(T*): Java can pass a list of elements in
    # Elements that are not reference counted and live inside the receiver
    # (the picked points of an action): their wrappers are lent by it. Fields
    # live in their own containers, whichever object lists them.
    lent: bool = False


def _wrap_list(t: ListType, addresses: str, lender: str, until_renewed: bool = False) -> str:
    if t.lent and lender:
        kind = "lentUntilRenewed" if until_renewed else "lent"
        return f"com.orvexa.internal.NativeLists.{kind}({t.elem_java}.class, {addresses}, {lender})"
    return f"com.orvexa.internal.NativeLists.managed({t.elem_java}.class, {addresses})"


class ObjectList(Conversion):
    """A list of wrapped objects as a result: the entry point returns the
    element addresses as a long[] (null for no list); the Java method an
    unmodifiable java.util.List holding the one Java object of each address
    (the object manager's), or null when the toolkit gave no list. Objects
    that are not reference counted are lent by the receiver."""
    kind = "olist"
    java_type = "long[]"
    jni_type = "jlongArray"
    jni_sig = "[J"

    def __init__(self, t: ListType, by_pointer: bool):
        self.t = t
        self.by_pointer = by_pointer
        self.public_type = f"java.util.List<{t.elem_java}>"

    def cpp_result(self, expr):
        return PointerList(self.by_pointer, self.t.cpp).cpp_result(expr)

    def java_result(self, call, ctx):
        return [f"return {_wrap_list(self.t, call([]), ctx.lender, ctx.until_renewed)};"]


class ObjectListOut(Conversion):
    """A non-const list reference the toolkit fills (getByName(name, list),
    getFields(list)): the Java caller passes a java.util.List to which the
    Java objects of the elements are added, in list order. The entry point
    fills a local list (which does not reference its elements, so that
    dropping it leaves their counts as they were) and stores the element
    addresses as a long[] in element 0 of a one-element Object[]."""
    kind = "olist_out"
    java_type = "Object[]"
    jni_type = "jobjectArray"
    jni_sig = "[Ljava/lang/Object;"

    def __init__(self, t: ListType):
        self.t = t
        self.public_type = f"java.util.List<? super {t.elem_java}>"

    def java_checks(self, p):
        return [null_check(p)]

    def java_begin(self, p):
        return [f"final Object[] {p}Out = new Object[1];"]

    def java_pass(self, p):
        return f"{p}Out"

    def java_after(self, p, ctx):
        return [f"{p}.addAll({_wrap_list(self.t, f'(long[]) {p}Out[0]', ctx.lender)});"]

    def cpp_pre(self, p):
        lines = [f"{self.t.cpp} {p}Tmp;"]
        if self.t.unreferenced:
            lines.append(f"{p}Tmp.addReferences(false);")
        return lines

    def cpp_arg(self, p):
        return f"{p}Tmp"

    def cpp_post(self, p):
        return ["{", f"  jlongArray {p}Addresses = nullptr;", f"  const {self.t.cpp}* {p}List = &{p}Tmp;"] + \
            ["  " + line for line in _addresses_of(f"{p}List", f"{p}Addresses")] + \
            [f"  env->SetObjectArrayElement({p}, 0, {p}Addresses);", f"  env->DeleteLocalRef({p}Addresses);", "}"]


class ObjectListIn(Conversion):
    """A const list reference the toolkit reads (apply(const SoPathList&)):
    the Java caller passes a java.util.List of wrappers, every element marked
    in flight for the call; the entry point builds a local list of their
    objects (not referencing them: the wrappers hold them)."""
    kind = "olist_in"
    java_type = "long[]"
    jni_type = "jlongArray"
    jni_sig = "[J"

    def __init__(self, t: ListType):
        self.t = t
        self.public_type = f"java.util.List<? extends {t.elem_java}>"

    def java_checks(self, p):
        # The element class is checked too: a list that unchecked code filled
        # with other wrappers must not reach the toolkit as these.
        return [null_check(p),
                f"for (int i = 0; i < {p}.size(); i++) {{",
                f"  final Object element = {p}.get(i);",
                f"  if (element == null) throw com.orvexa.internal.NativeCalls.nullArgument(\"{p}[\" + i + \"]\");",
                f"  if (!(element instanceof {self.t.elem_java})) throw new IllegalArgumentException("
                f"\"{p}[\" + i + \"] is a \" + element.getClass().getName());",
                "}"]

    def java_begin(self, p):
        return [f"final com.orvexa.orvex.Orvex[] {p}Objects = {p}.toArray(new com.orvexa.orvex.Orvex[0]);",
                f"final long[] {p}Handles = com.orvexa.internal.NativeCalls.beginAll({p}Objects);"]

    def java_end(self, p):
        return [f"com.orvexa.internal.NativeCalls.endAll({p}Objects);"]

    def java_pass(self, p):
        return f"{p}Handles"

    def cpp_pre(self, p):
        lines = [f"{self.t.cpp} {p}Tmp;"]
        if self.t.unreferenced:
            lines.append(f"{p}Tmp.addReferences(false);")
        return lines + ["{",
                        f"  ArrayHelper {p}HandleArrayHelper(env);",
                        f"  const jsize count = env->GetArrayLength({p});",
                        f"  const jlong* handles = {p}HandleArrayHelper.toNativeArray({p}, {READ_ONLY});",
                        "  for (jsize i = 0; i < count; ++i)",
                        f"    {p}Tmp.append(reinterpret_cast<{self.t.elem_cpp}*>(handles[i]));",
                        "}"]

    def cpp_arg(self, p):
        return f"{p}Tmp"


class ArrayResult(Conversion):
    """A member returning a pointer to `count()` contiguous objects of a
    wrapped class: the entry point returns the address, the Java method an
    array of copies that Java owns."""
    kind = "array"
    java_type = "long"
    jni_type = "jlong"
    jni_sig = "J"

    def __init__(self, w: WrappedClass, java_name: str, cpp_class: str):
        self.w = w
        self.public_type = java_name + "[]"
        self.cpp_class = cpp_class
        self.value_class = w if w.kind == "value" else None
        self.handle_class = w if w.kind != "value" else None

    def cpp_result(self, expr):
        return [f"const jlong result = reinterpret_cast<jlong>({expr});"]

    def java_result(self, call, ctx):
        count = ctx.array_count + "()" if ctx.array_count.isidentifier() else f"({ctx.array_count})"
        return [f"return {raw_access(self.w, ctx.package)}.copies({call([])}, {count});"]


class PrimArrayResult(Conversion):
    """A member returning a pointer to `count` primitives: a new Java array
    holding a copy (empty, not null, for a count of 0). `count` is a C++
    expression evaluated in the entry point."""
    kind = "prim_array_result"

    def __init__(self, cpp_elem: str, jelem: str, count: str):
        self.cpp_elem = cpp_elem
        self.jelem = jelem
        self.count = count
        self.java_type = self.public_type = jelem + "[]"
        self.jni_type = JNI_ARRAY[jelem]
        self.jni_sig = "[" + JNI_SIG[jelem]

    def cpp_result(self, expr):
        native = {"float": "float", "double": "double", "int": "int", "short": "short", "byte": "unsigned char",
                  "long": "long long"}[self.jelem]
        new = {"float": "Float", "double": "Double", "int": "Int", "short": "Short", "byte": "Byte",
               "long": "Long"}[self.jelem]
        return [f"const auto* values = reinterpret_cast<const {native}*>({expr});",
                f"const jsize count = static_cast<jsize>({self.count});",
                f"const {self.jni_type} result = count <= 0 || values == nullptr ? env->New{new}Array(0)",
                "    : ArrayHelper::fromNativeArray(env, values, static_cast<size_t>(count));"]
