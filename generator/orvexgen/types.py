"""Conversion of C++ parameter and result types into their Java forms and
the C++ code that crosses the boundary (the argument and result tables of
the binding's conventions)."""
from __future__ import annotations

from dataclasses import dataclass, field
from typing import Dict, List, Optional

from .cmodel import CClass, CType
from .cparse import ancestors

# C++ primitive -> (Java type, JNI type)
PRIM_JAVA = {
    "float": ("float", "jfloat"), "double": ("double", "jdouble"),
    "int": ("int", "jint"), "unsigned int": ("int", "jint"),
    "short": ("short", "jshort"), "unsigned short": ("short", "jshort"),
    "char": ("byte", "jbyte"), "signed char": ("byte", "jbyte"), "unsigned char": ("byte", "jbyte"),
    "long": ("long", "jlong"), "unsigned long": ("long", "jlong"),
    "long long": ("long", "jlong"), "unsigned long long": ("long", "jlong"),
    "char16_t": ("char", "jchar"),
}
JAVA_ARRAY_JNI = {"float": "jfloatArray", "double": "jdoubleArray", "int": "jintArray", "short": "jshortArray",
                  "byte": "jbyteArray", "long": "jlongArray", "boolean": "jbooleanArray", "char": "jcharArray"}
JAVA_ELEM_BYTES = {"float": 4, "double": 8, "int": 4, "short": 2, "byte": 1, "long": 8}
STRING_CLASSES = {"SbString", "SbName"}

READ_WRITE = "ArrayHelper::READ_WRITE"
READ_ONLY = "ArrayHelper::READ_ONLY"


class Unsupported(Exception):
    """The type has no conversion rule; the member is not wrapped."""


@dataclass
class WrappedClass:
    """What other classes need to know about a wrapped class. A nested C++
    class ("SoErrorStack::StackFrame") is a nested Java class
    (SoErrorStack.StackFrame in source, SoErrorStack$StackFrame in binary form)."""
    name: str                 # C++ name, qualified with the enclosing classes
    package: str
    kind: str                 # value | owned | refcounted
    elem: str = ""            # Java element type of a value class
    length: int = 0           # array length of a value class

    @property
    def java_name(self) -> str:
        """The Java name within its package, as source code spells it."""
        return self.name.replace("::", ".")

    @property
    def binary_name(self) -> str:
        """The Java name within its package, as the JVM spells it ('$' for nesting)."""
        return self.name.replace("::", "$")

    @property
    def qualified(self) -> str:
        return f"{self.package}.{self.java_name}"

    @property
    def binary_qualified(self) -> str:
        return f"{self.package}.{self.binary_name}"


@dataclass
class Arg:
    name: str
    java_type: str            # type in the native declaration
    public_type: str          # type in the public Java method
    public_expr: str          # public parameter -> native argument
    jni_type: str
    pre: List[str] = field(default_factory=list)
    cpp_arg: str = ""
    post: List[str] = field(default_factory=list)


@dataclass
class Result:
    kind: str                 # void self prim bool enum string sotype handle handle_owned value value_ref raw
    java_type: str = "void"   # native return type
    jni_type: str = "void"
    public_type: str = "void"
    value_class: Optional[WrappedClass] = None
    handle_class: Optional[WrappedClass] = None
    enum_java: str = ""
    cpp_class: str = ""


class TypeContext:
    def __init__(self, classes: Dict[str, CClass], wrapped: Dict[str, WrappedClass],
                 enums: Dict[str, tuple], current_package: str):
        self.classes = classes
        self.wrapped = wrapped          # C++ class name -> WrappedClass
        self.enums = enums              # "Cls::Enum" -> (C++ owner class, enum name)
        self.package = current_package

    def java_name(self, w: WrappedClass) -> str:
        return w.java_name if w.package == self.package else w.qualified

    def enum_java(self, name: str) -> str:
        if name not in self.enums:
            raise Unsupported(f"enum {name} belongs to no wrapped class")
        owner, enum = self.enums[name]
        return f"{self.java_name(self.wrapped[owner])}.{enum}"

    # ---- arguments ----
    def arg(self, pname: str, t: CType, mode: str) -> Arg:
        base = t.strip_ref()
        is_ref = t.kind == "lref"
        if t.kind in ("prim", "bool", "enum") or (is_ref and base.const and base.kind in ("prim", "bool", "enum")):
            return self._scalar(pname, base)
        if is_ref and not base.const and base.kind in ("prim", "bool", "enum"):
            return self._out_scalar(pname, base)
        if base.kind == "class" and base.name in STRING_CLASSES and (not is_ref or base.const):
            a = Arg(pname, "String", "String", pname, "jstring")
            a.pre = [f"StringHelper {pname}StrHelper(env, {pname});"]
            if base.name == "SbString":
                a.pre.append(f"const SbString {pname}NativeArg({pname}StrHelper.toUnicodeString());")
            else:
                a.pre.append(f"const SbName {pname}NativeArg({pname}StrHelper.toUTFString());")
            a.cpp_arg = f"{pname}NativeArg"
            return a
        if t.kind == "ptr" and base.inner and base.inner.kind == "prim" and base.inner.name == "char" and base.inner.const:
            a = Arg(pname, "String", "String", pname, "jstring")
            a.pre = [f"StringHelper {pname}StrHelper(env, {pname});"]
            a.cpp_arg = f"{pname}StrHelper.toUTFString()"
            return a
        if base.kind == "class" and base.name == "SoType" and (not is_ref or base.const):
            a = Arg(pname, "String", "String", pname, "jstring")
            a.pre = [f"StringHelper {pname}TypeNameHelper(env, {pname});"]
            a.cpp_arg = f"SoType::fromName(SbName({pname}TypeNameHelper.toUTFString()))"
            return a
        if base.kind == "class" and base.name in self.wrapped:
            w = self.wrapped[base.name]
            if w.kind == "value":
                return self._value_arg(pname, base, w, mode)
            return self._handle_arg(pname, t, w)
        if t.kind == "ptr" and base.inner is not None and base.inner.kind == "ptr":
            return self._pointer_array(pname, base.inner)
        if t.kind == "ptr" and base.inner is not None and base.inner.kind == "class" and \
                base.inner.name == "SbString" and base.inner.const:
            a = Arg(pname, "String[]", "String[]", pname, "jobjectArray")
            a.pre = [f"StringArrayHelper {pname}Helper(env, {pname});"]
            a.cpp_arg = f"{pname}Helper.toSbStringArray()"
            return a
        if t.kind == "ptr" and base.inner is not None and base.inner.kind == "class":
            inner = base.inner
            if inner.name in self.wrapped:
                w = self.wrapped[inner.name]
                if w.kind == "value":   # a C array of values, as a flat primitive array
                    return self._prim_array(pname, w.elem, inner.name, inner.const, mode)
                return self._handle_arg(pname, t, w)
            if inner.name not in self.classes:   # a toolkit object not wrapped yet: raw handle
                a = Arg(pname, "long", "long", pname, "jlong")
                a.cpp_arg = f"reinterpret_cast<{inner.spelling}*>({pname})"
                return a
        if t.kind in ("array", "ptr") or (is_ref and base.kind == "array"):
            return self._array_arg(pname, t, mode)
        raise Unsupported(f"parameter type {t.spelling}")

    def _pointer_array(self, pname: str, elem: CType) -> Arg:
        """`const char**`: a String[]; `T**` of a handle class: a long[] of handles."""
        target = elem.inner
        if target is not None and target.kind == "prim" and target.name == "char" and target.const:
            a = Arg(pname, "String[]", "String[]", pname, "jobjectArray")
            a.pre = [f"StringArrayHelper {pname}Helper(env, {pname});"]
            a.cpp_arg = f"const_cast<{elem.spelling}*>({pname}Helper.toUTFStringArray())"
            return a
        if target is not None and target.kind == "class" and target.name in self.wrapped and \
                self.wrapped[target.name].kind != "value":
            w = self.wrapped[target.name]
            jt = self.java_name(w)
            expr = (f"java.util.Arrays.stream({pname}).mapToLong(e -> e == null ? 0L : "
                    f"e.getNativeResourceHandleInternal()).toArray()")
            a = Arg(pname, "long[]", jt + "[]", expr, "jlongArray")
            a.pre = [f"ArrayHelper {pname}HandleArrayHelper(env);"]
            a.cpp_arg = f"reinterpret_cast<{elem.spelling}*>({pname}HandleArrayHelper.toNativeArray({pname}, {READ_WRITE}))"
            return a
        raise Unsupported(f"array of pointers {elem.spelling}")

    def int_buffer(self, pname: str, count: str) -> Arg:
        """`const int*&` next to its `int&` count: the toolkit's own memory as a
        direct byte buffer, handed back in element 0 of a one-element Object[]."""
        a = Arg(pname, "Object[]", "java.nio.ByteBuffer[]", pname, "jobjectArray")
        a.pre = [f"const int* {pname}Tmp = nullptr;"]
        a.cpp_arg = f"{pname}Tmp"
        a.post = [f"env->SetObjectArrayElement({pname}, 0, {pname}Tmp == nullptr ? nullptr : "
                  f"env->NewDirectByteBuffer(const_cast<int*>({pname}Tmp), static_cast<jlong>({count}Tmp) * 4));"]
        return a

    def _scalar(self, pname: str, t: CType) -> Arg:
        if t.kind == "bool":
            a = Arg(pname, "boolean", "boolean", pname, "jboolean")
            a.cpp_arg = f"{pname} != JNI_FALSE"
            return a
        if t.kind == "enum":
            j = self.enum_java(t.name)
            a = Arg(pname, "int", j, f"{pname}.getValue()", "jint")
            a.cpp_arg = f"static_cast<{t.name}>({pname})"
            return a
        if t.name not in PRIM_JAVA:
            raise Unsupported(f"primitive {t.name}")
        jt, jni = PRIM_JAVA[t.name]
        a = Arg(pname, jt, jt, pname, jni)
        a.cpp_arg = f"static_cast<{t.name}>({pname})"
        return a

    def _out_scalar(self, pname: str, t: CType) -> Arg:
        """A non-const reference to a scalar: a one-element Java array."""
        if t.kind == "bool":
            jt, ctype, store = "boolean", "bool", f"{pname}Tmp ? 1 : 0"
        elif t.kind == "enum":
            jt, ctype, store = "int", t.name, f"static_cast<jint>({pname}Tmp)"
        else:
            if t.name not in PRIM_JAVA:
                raise Unsupported(f"primitive {t.name}")
            jt, ctype, store = PRIM_JAVA[t.name][0], t.name, f"{pname}Tmp"
        a = Arg(pname, jt + "[]", jt + "[]", pname, JAVA_ARRAY_JNI[jt])
        a.pre = [f"{ctype} {pname}Tmp{{}};"]
        a.cpp_arg = f"{pname}Tmp"
        a.post = [f"ArrayHelper {pname}ArrayHelper(env);",
                  f"*{pname}ArrayHelper.toNativeArray({pname}, {READ_WRITE}) = {store};"]
        return a

    def _value_arg(self, pname: str, t: CType, w: WrappedClass, mode: str) -> Arg:
        jt = self.java_name(w)
        a = Arg(pname, w.elem + "[]", jt, f"{pname}.array", JAVA_ARRAY_JNI[w.elem])
        use = mode if t.const else READ_WRITE   # an output operand is always copied back
        a.pre = [f"ArrayHelper {pname}Helper(env);"]
        a.cpp_arg = f"*reinterpret_cast<{t.name}*>({pname}Helper.toNativeArray({pname}, {use}))"
        return a

    def _handle_arg(self, pname: str, t: CType, w: WrappedClass) -> Arg:
        jt = self.java_name(w)
        a = Arg(pname, "long", jt, f"({pname} == null ? 0L : {pname}.getNativeResourceHandleInternal())", "jlong")
        cls = t.strip_ref().name if t.kind != "ptr" else t.inner.name
        if t.kind == "ptr":
            a.cpp_arg = f"reinterpret_cast<{cls}*>({pname})"
        else:
            a.cpp_arg = f"*reinterpret_cast<{cls}*>({pname})"
        return a

    def _prim_array(self, pname: str, jelem: str, cpp_elem: str, const: bool, mode: str) -> Arg:
        a = Arg(pname, jelem + "[]", jelem + "[]", pname, JAVA_ARRAY_JNI[jelem])
        a.pre = [f"ArrayHelper {pname}ArrayHelper(env);"]
        a.cpp_arg = (f"reinterpret_cast<{cpp_elem}*>({pname}ArrayHelper.toNativeArray({pname}, "
                     f"{mode if const else READ_WRITE}))")
        return a

    def _array_arg(self, pname: str, t: CType, mode: str) -> Arg:
        """Primitive arrays: `const float v[3]`, `float* p`, `const SbMat&`."""
        base = t.strip_ref()
        elem = base.inner
        dims = ""
        while elem is not None and elem.kind == "array":
            dims += f"[{elem.count}]"
            elem = elem.inner
        if elem is None or elem.kind != "prim" or elem.name not in PRIM_JAVA:
            raise Unsupported(f"array type {t.spelling}")
        jelem = PRIM_JAVA[elem.name][0]
        const = elem.const or base.const
        a = self._prim_array(pname, jelem, elem.name, const, mode)
        pinned = f"{pname}ArrayHelper.toNativeArray({pname}, {mode if const else READ_WRITE})"
        if t.kind == "lref":
            # A reference to a whole (multi-dimensional) array: reinterpret the storage.
            outer = f"[{base.count}]" if base.kind == "array" else ""
            a.cpp_arg = f"*reinterpret_cast<{elem.name}(*){outer}{dims}>({pinned})"
        elif dims:
            a.cpp_arg = f"reinterpret_cast<{elem.name}(*){dims}>({pinned})"
        return a

    # ---- results ----
    def result(self, t: CType, owner: str, receiver_kind: str) -> Result:
        base = t.strip_ref()
        is_ref = t.kind == "lref"
        if t.kind == "void":
            return Result("void")
        if is_ref and not base.const and base.kind == "class" and receiver_kind != "none" and \
                (base.name == owner or base.name in ancestors(self.classes, owner)):
            return Result("self")   # returns *this: the Java method returns `this`
        if base.kind == "bool" and (not is_ref):
            return Result("bool", "boolean", "jboolean", "boolean")
        if base.kind == "prim" and not is_ref:
            if base.name not in PRIM_JAVA:
                raise Unsupported(f"result {t.spelling}")
            jt, jni = PRIM_JAVA[base.name]
            return Result("prim", jt, jni, jt, cpp_class=base.name)
        if base.kind == "enum" and not is_ref:
            j = self.enum_java(base.name)
            return Result("enum", "int", "jint", j, enum_java=j)
        if base.kind == "class" and base.name in STRING_CLASSES and (not is_ref or base.const):
            return Result("string", "String", "jstring", "String")
        if t.kind == "ptr" and base.inner and base.inner.kind == "prim" and base.inner.name == "char" and base.inner.const:
            return Result("string", "String", "jstring", "String")
        if base.kind == "class" and base.name == "SoType" and not is_ref:
            return Result("sotype", "String", "jstring", "String")
        target = base.inner if t.kind == "ptr" else base
        if target is not None and target.kind == "class" and \
                (target.name == "SbPList" or "SbPList" in ancestors(self.classes, target.name)):
            return Result("plist_ptr" if t.kind == "ptr" else "plist", "long[]", "jlongArray", "long[]",
                          cpp_class=target.name)
        if target is not None and target.kind == "class" and target.name in self.wrapped:
            w = self.wrapped[target.name]
            jt = self.java_name(w)
            if w.kind == "value":
                if t.kind == "ptr":
                    raise Unsupported(f"result {t.spelling}: pointer to values")
                if not is_ref or receiver_kind == "value":
                    return Result("value", "void", "void", jt, value_class=w, cpp_class=target.name)
                return Result("value_ref", "long", "jlong", jt, value_class=w, cpp_class=target.name)
            if t.kind == "ptr" or is_ref:
                return Result("handle" if t.kind == "ptr" else "handle_ref", "long", "jlong", jt,
                              handle_class=w, cpp_class=target.name)
            if w.kind == "owned":
                return Result("handle_owned", "long", "jlong", jt, handle_class=w, cpp_class=target.name)
        raise Unsupported(f"result {t.spelling}")
