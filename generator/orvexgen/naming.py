"""Names on the Java side: packages of header folders and JNI symbols."""


def java_package(folder: str) -> str:
    """Header folder to Java package: Orvex -> com.orvexa.orvex,
    Orvex/errors -> com.orvexa.orvex.errors, MeshLux -> com.orvexa.meshlux."""
    parts = folder.replace("\\", "/").strip("/").split("/")
    return ".".join(["com", "orvexa"] + [p.lower() for p in parts])


def package_dir(package: str) -> str:
    """Directory of a package's generated C++ files, below generated/:
    com.orvexa.orvex.errors -> orvex/errors."""
    parts = package.split(".")
    return "/".join(parts[2:]) if parts[:2] == ["com", "orvexa"] else "/".join(parts)


def _mangle_part(s: str) -> str:
    out = []
    for ch in s:
        if ch.isascii() and (ch.isalnum()):
            out.append(ch)
        elif ch == "_":
            out.append("_1")
        elif ch == ";":
            out.append("_2")
        elif ch == "[":
            out.append("_3")
        elif ch in "./":
            out.append("_")
        else:
            out.append("_0%04x" % ord(ch))
    return "".join(out)


def jni_name(package: str, java_class: str, method: str) -> str:
    """The exported symbol of a native method. java_class may be nested
    ("SbDataType$DataType"): '$' is escaped like any other character."""
    return "Java_" + _mangle_part(package) + "_" + _mangle_part(java_class) + "_" + _mangle_part(method)
