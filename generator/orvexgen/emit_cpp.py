"""Writes the C++ half: one <Class>_jni.cpp per Java class."""
from __future__ import annotations

from typing import Dict, List, Set

from .cmodel import CClass, CType
from .naming import jni_name
from .plan import ClassPlan, Method
from .conversions import JNI_ARRAY, READ_WRITE

PROTECTED_MESSAGE = "Call of protected methods not allowed."


def _headers_of(t: CType, classes: Dict[str, CClass], out: Set[str]) -> None:
    while t is not None:
        if t.kind == "class" and t.name in classes:
            out.add(classes[t.name].header)
        if t.kind == "enum":
            owner = t.name.rsplit("::", 1)[0]
            if owner in classes:
                out.add(classes[owner].header)
        t = t.inner


def _call_expression(plan: ClassPlan, m: Method) -> str:
    cls = plan.name
    f = m.cfunc
    args = ", ".join(a.conv.cpp_arg(a.name) for a in m.args)
    if m.operator:
        return f"((*self) {m.operator} ({args}))"
    if m.guard == "protected":
        target = "Access::get()"
        return f"{target}({args})" if f.is_static else f"(self->*{target})({args})"
    if f.is_static:
        return f"{cls}::{f.name}({args})"
    if m.guard == "overridable" and not f.is_pure:
        # A Java-extended object reached this entry point through `super`:
        # run the toolkit's own implementation, not the override that called Java.
        return (f"(dynamic_cast<ICustomClass*>(self) != nullptr ? self->{cls}::{f.name}({args}) "
                f": self->{f.name}({args}))")
    return f"self->{f.name}({args})"


def _protected_access(plan: ClassPlan, m: Method) -> List[str]:
    f = m.cfunc
    cls = plan.name
    params = ", ".join(p.type.spelling for p in f.params)
    if f.is_static:
        fn = f"{f.result.spelling} (*)({params})"
    else:
        fn = f"{f.result.spelling} ({cls}::*)({params}){' const' if f.is_const else ''}"
    return [
        f"using Fn = {fn};",
        "// Derived only to name the protected member; never instantiated.",
        f"struct Access : {cls} {{",
        f"  static Fn get() {{ return &Access::{f.name}; }}",
        "};",
    ]


def _method(plan: ClassPlan, m: Method) -> List[str]:
    cls = plan.name
    r = m.result
    params = ["JNIEnv* env", "jclass"]
    if m.receiver == "value":
        params.append(f"{JNI_ARRAY[plan.wrapped.elem]} nativeObject")
    elif m.receiver == "handle":
        params.append("jlong nativeObject")
    params += [f"{a.jni_type} {a.name}" for a in m.args]
    if r.kind == "value":
        params.append(f"{JNI_ARRAY[r.value_class.elem]} returnedValue")
    jret = "jlong" if m.is_ctor and plan.kind != "value" else ("void" if r.kind == "value" else r.jni_type)
    sym = jni_name(plan.package, plan.binary_name, m.native_name)
    out = [f"JNIEXPORT {jret} JNICALL {sym}({', '.join(params)}) {{"]
    body: List[str] = []
    if m.receiver == "value":
        body.append("ArrayHelper nativeObjectArrayHelper(env);")
        body.append(f"{cls}* self = reinterpret_cast<{cls}*>("
                    f"nativeObjectArrayHelper.toNativeArray(nativeObject, {READ_WRITE}));")
    elif m.receiver == "handle":
        body.append(f"{cls}* self = reinterpret_cast<{cls}*>(nativeObject);")
    if m.guard == "protected":
        body += ["if (dynamic_cast<ICustomClass*>(self) == nullptr) {",
                 f'  ExceptionHelper::throwIllegalAccessException(env, "{PROTECTED_MESSAGE}");',
                 "  return" + ("" if jret == "void" else " {}") + ";",
                 "}"]
        body += _protected_access(plan, m)
    for a in m.args:
        body += a.conv.cpp_pre(a.name)
    args = ", ".join(a.conv.cpp_arg(a.name) for a in m.args)
    if m.is_ctor:
        if plan.kind == "value":
            body.append(f"new (self) {cls}({args});")
        elif plan.self_counted:
            body += [f"{cls}* object = new {cls}({args});", "object->ref();  // Java's reference",
                     "return reinterpret_cast<jlong>(object);"]
        else:
            body.append(f"return reinterpret_cast<jlong>(new {cls}({args}));")
        out += ["  " + line for line in body] + ["}", ""]
        return out
    body += r.cpp_result(_call_expression(plan, m))
    for a in m.args:
        body += a.conv.cpp_post(a.name)
    if jret != "void":
        body.append("return result;")
    out += ["  " + line for line in body] + ["}", ""]
    return out


def _owned_to_array(plan: ClassPlan) -> List[str]:
    """toArrayImpl of a handle-backed class: like the value types' one, it
    fills already constructed Java objects from a native contiguous array;
    here element i is assigned (with the class's copy assignment) to the
    native object of Java object i, whose handle it asks for."""
    cls = plan.name
    return [
        f"JNIEXPORT void JNICALL {jni_name(plan.package, plan.binary_name, 'toArrayImpl')}"
        f"(JNIEnv* env, jclass clazz, jobjectArray objects, jlong address) {{",
        "  if (objects == nullptr || address == 0) return;",
        "  const jsize count = env->GetArrayLength(objects);",
        "  if (count == 0) return;",
        '  const jmethodID handleOf = env->GetMethodID(clazz, "getNativeResourceHandleInternal", "()J");',
        f"  const {cls}* values = reinterpret_cast<const {cls}*>(address);",
        "  for (jsize i = 0; i < count; ++i) {",
        "    jobject element = env->GetObjectArrayElement(objects, i);",
        "    const jlong handle = env->CallLongMethod(element, handleOf);",
        "    env->DeleteLocalRef(element);",
        "    if (env->ExceptionCheck()) return;",
        f"    if (handle != 0) *reinterpret_cast<{cls}*>(handle) = values[i];  // 0: a disposed object",
        "  }",
        "}", ""]


def emit(plan: ClassPlan, classes: Dict[str, CClass], module: str) -> str:
    cls = plan.name
    binary = plan.binary_name
    qualified = plan.wrapped.binary_qualified
    headers: Set[str] = {plan.cls.header}
    wrapped = plan.wrapped_methods()
    variadic = False
    guards = False
    for m in wrapped:
        for p in m.cfunc.params:
            _headers_of(p.type, classes, headers)
        _headers_of(m.cfunc.result, classes, headers)
        if m.result.kind in ("plist", "plist_ptr") and "SbPList" in classes:
            headers.add(classes["SbPList"].header)
        variadic = variadic or m.cfunc.is_variadic
        guards = guards or bool(m.guard)
    if plan.class_type_id:
        headers.add(classes["SoType"].header if "SoType" in classes else "Orvex/SoType.h")

    lines = [f"// JNI entry points of {qualified}, generated by orvexgen from <{plan.cls.header}>.",
             "// Do not edit: change the header or the package's rules file instead.",
             "#include <jni.h>", ""]
    lines += [f"#include <{h}>" for h in sorted(headers)]
    lines += ["#include <Orvex/misc/SoModuleCheck.h>", ""]
    lines += ["#include <cstring>", "#include <new>", "#include <type_traits>", "#include <vector>", ""]
    lines += ['#include "ArrayHelper.h"', '#include "ExceptionHelper.h"', '#include "StringArrayHelper.h"',
              '#include "StringHelper.h"']
    if variadic:
        lines.append('#include "SafeFormat.h"')
    if guards:
        lines.append('#include "custom/ICustomClass.h"')
    lines.append("")
    if variadic:
        lines += ["// Messages are passed in the position of the toolkit's format string, as the",
                  "// toolkit's contract says, after SafeFormat has kept only the conversions",
                  "// that are harmless with the zero arguments it supplies.",
                  '#pragma GCC diagnostic ignored "-Wformat-security"',
                  '#pragma GCC diagnostic ignored "-Wformat-nonliteral"', ""]
    lines += ["namespace {",
              f'const SoModuleCheck s_moduleCheck("{module}", "{qualified}");',
              "}  // namespace", "", 'extern "C" {', ""]

    if plan.kind == "value":
        elem = plan.wrapped.elem
        jarr = JNI_ARRAY[elem]
        sig = "[" + {"float": "F", "double": "D", "int": "I", "short": "S", "byte": "B", "long": "J"}[elem]
        lines += [
            f"JNIEXPORT void JNICALL {jni_name(plan.package, binary, 'checkSize')}(JNIEnv* env, jclass) {{",
            f"  if (sizeof({cls}) != {plan.assumed_bytes})",
            f'    env->FatalError("{qualified}:: Basic type size differs in managed and native worlds. '
            f'Runtime aborted.");',
            "}", "",
            f"JNIEXPORT void JNICALL {jni_name(plan.package, binary, 'setValueFromHandle')}"
            f"(JNIEnv* env, jclass, {jarr} array, jlong address) {{",
            "  ArrayHelper arrayHelper(env);",
            "  void* storage = arrayHelper.toNativeArray(array, ArrayHelper::READ_WRITE);",
            f"  const {cls}& source = *reinterpret_cast<const {cls}*>(address);",
            f"  if constexpr (std::is_trivially_copyable_v<{cls}>)",
            f"    std::memcpy(storage, &source, sizeof({cls}));",
            "  else",
            f"    *static_cast<{cls}*>(storage) = source;",
            "}", "",
            f"JNIEXPORT void JNICALL {jni_name(plan.package, binary, 'toArrayImpl')}"
            f"(JNIEnv* env, jclass clazz, jobjectArray objects, jlong address) {{",
            "  if (objects == nullptr || address == 0) return;",
            "  const jsize count = env->GetArrayLength(objects);",
            "  if (count == 0) return;",
            f'  const jfieldID arrayField = env->GetFieldID(clazz, "array", "{sig}");',
            "  const char* values = reinterpret_cast<const char*>(address);",
            "  for (jsize i = 0; i < count; ++i) {",
            "    jobject element = env->GetObjectArrayElement(objects, i);",
            f"    auto storage = static_cast<{jarr}>(env->GetObjectField(element, arrayField));",
            "    {",
            "      ArrayHelper storageHelper(env);",
            f"      std::memcpy(storageHelper.toNativeArray(storage, ArrayHelper::READ_WRITE), "
            f"values + i * sizeof({cls}), sizeof({cls}));",
            "    }",
            "    env->DeleteLocalRef(storage);",
            "    env->DeleteLocalRef(element);",
            "  }",
            "}", ""]
    elif plan.kind == "owned":
        sym = jni_name(plan.package, binary + "$NativeResourceHandle", "deleteNativeHandleImpl")
        lines.append(f"JNIEXPORT void JNICALL {sym}(JNIEnv*, jclass, jlong address) {{")
        if plan.self_counted:
            lines.append("  // Drops Java's reference; the object deletes itself with its last one.")
            lines.append(f"  if (address != 0) reinterpret_cast<{cls}*>(address)->unref();")
        elif not plan.cls.has_public_dtor:
            lines.append("  // Objects of this class are never Java's to delete: its destructor is not public.")
            lines.append("  (void)address;")
        elif plan.cls.has_virtual_dtor:
            lines.append(f"  if (address != 0) delete reinterpret_cast<{cls}*>(address);")
        else:
            lines.append(f"  delete reinterpret_cast<{cls}*>(address);")
        lines += ["}", ""]
        if plan.to_array:
            lines += _owned_to_array(plan)

    if plan.class_type_id:
        lines += [f"JNIEXPORT jstring JNICALL {jni_name(plan.package, binary, 'getClassTypeId')}(JNIEnv* env, jclass) {{",
                  f"  return StringHelper::fromNativeString(env, {cls}::getClassTypeId().getName());",
                  "}", ""]
    for e in plan.enums:
        for cname, _ in e.constants:
            sym = jni_name(plan.package, f"{binary}${e.name}", f"get{cname}")
            lines += [f"JNIEXPORT jint JNICALL {sym}(JNIEnv*, jclass) {{",
                      f"  return static_cast<jint>({cls}::{cname});", "}", ""]
    for m in wrapped:
        lines += _method(plan, m)
    lines += ['}  // extern "C"', ""]
    return "\n".join(lines)
