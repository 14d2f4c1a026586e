"""Command line: orvexgen --include-root DIR --rules-dir DIR --out-dir DIR
[--fragments-dir DIR] [--module NAME] [--list | --report]

Generates, for every package that has a rules file, one <Class>_jni.cpp per
class under <out>/<package dir>/ and one Java source under <out>/java/.
--list prints the files that would be written ("cpp PATH" / "java PATH"),
--report prints what is wrapped and why other members are not."""
from __future__ import annotations

import argparse
import os
import sys
from typing import Dict, List, Optional, Tuple

from . import cparse, emit_cpp, emit_custom, emit_java, plan as planner, rules as rules_mod
from .types import TypeContext
from .naming import java_package, package_dir


def header_folders_of(include_root: str, packages: List[str]) -> List[str]:
    """Headers of the folders whose Java package has a rules file."""
    headers = []
    for dirpath, _, files in os.walk(include_root):
        rel = os.path.relpath(dirpath, include_root)
        if rel == "." or java_package(rel) not in packages:
            continue
        headers += [os.path.join(rel, f) for f in files if f.endswith(".h")]
    return sorted(headers)


def build_plans(include_root: str, rules_dir: str, extra_includes: List[str] = ()) \
        -> Tuple[Dict, List[planner.ClassPlan]]:
    all_rules = rules_mod.load_dir(rules_dir)
    headers = header_folders_of(include_root, list(all_rules))
    extra = [arg for d in extra_includes for arg in ("-I", d)]
    classes = cparse.parse_headers(include_root, headers, extra, list(extra_includes))
    wrapped = planner.collect_wrapped(classes, all_rules)
    enums = planner.collect_enums(classes, wrapped)
    plans = []
    for pkg in sorted(all_rules):
        r = all_rules[pkg]
        for name in sorted(r.classes):
            if wrapped[name].carried:
                continue   # its Java class is another class's
            p = planner.plan_class(name, classes, wrapped, enums, r)
            planner.check_public_signatures(p)
            plans.append(p)
    planner.mark_array_elements(plans)
    return classes, plans


def outputs(out_dir: str, p: planner.ClassPlan) -> Tuple[str, Optional[str]]:
    """The C++ file of a class (a nested class has its own, named like its
    JNI symbols: SoErrorStack_00024StackFrame_jni.cpp) and its Java file (None
    for a nested class, which is written into its enclosing class's file)."""
    cpp = os.path.join(out_dir, package_dir(p.package), f"{p.binary_name.replace('$', '_00024')}_jni.cpp")
    if p.outer:
        return cpp, None
    java = os.path.join(out_dir, "java", *p.package.split("."), f"{p.java_simple}.java")
    return cpp, java


def custom_outputs(out_dir: str, p: planner.ClassPlan) -> Tuple[str, str]:
    """The header and source of the class's Custom<Class>, beside its entry points."""
    base = os.path.join(out_dir, package_dir(p.package), emit_custom.custom_name(p.name))
    return base + ".h", base + ".cpp"


def custom_plans(classes: Dict, plans: List[planner.ClassPlan]):
    """(plan, forwarded members) of every class whose rules forward virtuals to Java."""
    wrapped = {p.name: p.wrapped for p in plans}
    enums = planner.collect_enums(classes, wrapped)
    out = []
    for p in plans:
        signatures = p.rules.for_class(p.name).forward
        if not signatures:
            continue
        if p.name not in p.rules.extensible or p.outer:
            raise planner.PlanError(f"{p.name}: forward needs a top-level class listed as extensible")
        ctx = TypeContext(classes, wrapped, enums, p.package)
        out.append((p, emit_custom.plan_forwarding(p.cls, classes, ctx, signatures)))
    return out


def write_if_changed(path: str, text: str) -> None:
    if os.path.exists(path):
        with open(path, encoding="utf-8") as f:
            if f.read() == text:
                return
    os.makedirs(os.path.dirname(path), exist_ok=True)
    tmp = path + ".tmp"
    with open(tmp, "w", encoding="utf-8") as f:
        f.write(text)
    os.replace(tmp, path)


def _classes_named(forwarded, classes) -> List[str]:
    """The classes whose headers the forwarding stubs need."""
    names = set()
    for fw in forwarded:
        for t in [p.type for p in fw.cfunc.params] + [fw.cfunc.result]:
            while t is not None:
                if t.kind == "class" and t.name in classes:
                    names.add(t.name)
                t = t.inner
    return sorted(names)


def main(argv=None) -> int:
    ap = argparse.ArgumentParser(prog="orvexgen")
    ap.add_argument("--include-root", required=True)
    ap.add_argument("--rules-dir", required=True)
    ap.add_argument("--out-dir", required=True)
    ap.add_argument("--fragments-dir")
    ap.add_argument("--module", default="orvexjava")
    ap.add_argument("--extra-include", action="append", default=[],
                    help="further include directory for parsing (classes there are not wrapped)")
    ap.add_argument("--stamp", help="file touched after a successful generation")
    mode = ap.add_mutually_exclusive_group()
    mode.add_argument("--list", action="store_true")
    mode.add_argument("--report", action="store_true")
    a = ap.parse_args(argv)

    try:
        classes, plans = build_plans(a.include_root, a.rules_dir, a.extra_include)
        customs = custom_plans(classes, plans)
    except (cparse.ParseError, planner.PlanError, emit_custom.CustomError, ValueError) as e:
        print(f"orvexgen: {e}", file=sys.stderr)
        return 1
    out_dir = os.path.abspath(a.out_dir)
    if a.list:
        for p in plans:
            cpp, java = outputs(out_dir, p)
            print(f"cpp {cpp}")
            if java:
                print(f"java {java}")
        for p, _ in customs:
            print(f"cpp {custom_outputs(out_dir, p)[1]}")
        return 0
    if a.report:
        for p in plans:
            print(f"{p.package}.{p.name} ({p.kind})")
            for m in p.methods:
                state = f"skipped: {m.skipped}" if m.skipped else "native"
                print(f"  {m.native_name:28} {m.cfunc.signature}  -> {state}")
        for p, forwarded in customs:
            print(f"{p.package}.{emit_custom.custom_name(p.name)} (forwards to Java)")
            for fw in forwarded:
                print(f"  {fw.cfunc.signature}  -> {fw.cfunc.name}{fw.java_sig}")
        return 0
    for p in plans:
        cpp, java = outputs(out_dir, p)
        write_if_changed(cpp, emit_cpp.emit(p, classes, a.module))
        if java:
            write_if_changed(java, emit_java.emit(p, a.fragments_dir, plans))
    for p, forwarded in customs:
        header, source = custom_outputs(out_dir, p)
        headers = [classes[c].header for c in _classes_named(forwarded, classes)]
        write_if_changed(header, emit_custom.emit_header(p.cls, forwarded))
        write_if_changed(source, emit_custom.emit_source(p.cls, forwarded, p.wrapped.binary_qualified.replace(".", "/"),
                                                         os.path.basename(header), headers))
    if a.stamp:
        os.makedirs(os.path.dirname(os.path.abspath(a.stamp)), exist_ok=True)
        with open(a.stamp, "w") as f:
            f.write("generated\n")
    return 0
