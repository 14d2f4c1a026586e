"""The Java members of a multiple-value field whose values are numbers:
values in bulk through primitive arrays and direct buffers, all reaching the
shared checks of com.orvexa.orvex.fields.MultiValues and the hand-written
natives of runtime/fields/MultiFieldValues_jni.cpp. One rule per class
([bulk] in the fields rules) gives what differs: the element type, the
numbers per value, the value class and what its numbers are."""
from __future__ import annotations

from typing import List

from .rules import BulkValues

_BUFFERS = {"boolean": "ByteBuffer", "byte": "ByteBuffer", "short": "ShortBuffer", "int": "IntBuffer",
            "long": "LongBuffer", "float": "FloatBuffer", "double": "DoubleBuffer"}


def bulk_members(java_class: str, bulk: BulkValues) -> List[str]:
    e = bulk.elem
    buf = _BUFFERS[e]
    n = bulk.components
    per_value = "one number per value" if n == 1 else f"{n} numbers per value"
    kinds = "a ByteBuffer" if buf == "ByteBuffer" else f"a {buf} or a ByteBuffer"
    out = [f"  // ---- values in bulk: {e}[] arrays and {buf}s, {per_value} (see MultiValues) ----",
           f"  private static final MultiValues<{e}[], java.nio.{buf}> BULK = new MultiValues<>({n}, {e}[].class,",
           f"      java.nio.{buf}.class, {java_class}::setValuesImpl, {java_class}::getValuesFlatImpl, "
           f"{java_class}::startEditingImpl,",
           f"      {java_class}::getDirectValuesImpl, {java_class}::setValuesBufferImpl);",
           "",
           "  /**",
           "   * Sets {@code num} values from index {@code start} on"
           + ("" if n == 1 else f" ({n} numbers each)") + ", growing the field as needed.",
           "   *",
           "   * @throws IndexOutOfBoundsException when {@code start} is negative",
           "   * @throws IllegalArgumentException when {@code num} is negative or {@code newValues} is too short",
           "   */",
           f"  public void setValues(int start, int num, {e}[] newValues) {{",
           "    BULK.set(this, start, num, newValues, \"newValues\");",
           "  }",
           ""]
    if n == 1:
        out += ["  /** Sets the values from index {@code start} on to those of {@code values}, one per element. */",
                f"  public void setValues(int start, {e}[] values) {{",
                "    BULK.setFlat(this, start, values, \"values\");",
                "  }",
                ""]
    else:
        out += ["  /**",
                "   * Sets the values from index {@code start} on to those of {@code flat}, "
                f"{n} numbers per {bulk.per}.",
                "   *",
                f"   * @throws IllegalArgumentException when the length of {{@code flat}} is not a multiple of {n}",
                "   */",
                f"  public void setValues(int start, {e}[] flat) {{",
                "    BULK.setFlat(this, start, flat, \"flat\");",
                "  }",
                "",
                "  /** Sets the values from index {@code start} on to copies of {@code values}. */",
                f"  public void setValues(int start, com.orvexa.orvex.{bulk.value}[] values) {{",
                "    BULK.setValues(this, start, values, v -> v.array, \"values\");",
                "  }",
                ""]
    out += [f"  /** The numbers of the values from index {{@code start}} to the end, {per_value}; empty for "
            "{@code getNum()}. */",
            f"  public {e}[] getValuesFlat(int start) {{",
            "    return BULK.getFlat(this, start);",
            "  }",
            "",
            "  /**",
            f"   * The field's values as a {buf} to change in place; {{@link #finishEditing()}} then tells of the",
            "   * changes. The buffer is memory Java owns that the field uses as its storage: it shows the field's",
            "   * values until the field needs more room (or gets other memory); ask again after such a change.",
            "   */",
            f"  public java.nio.{buf} startEditing() {{",
            "    return BULK.startEditing(this);",
            "  }",
            "",
            f"  /** The values from index {{@code start}} on as a {buf} over the field's storage, as "
            "{@link #startEditing()}. */",
            f"  public java.nio.{buf} getDirectValues(int start) {{",
            "    return BULK.getDirectValues(this, start);",
            "  }",
            "",
            "  /**",
            "   * Makes the field hold {@code num} values stored in place in {@code buffer}, from its position on: "
            "writes",
            "   * into the buffer show in the field and the field's changes land in the buffer, until the field needs",
            f"   * more room. The buffer must be direct, in the platform's byte order, {kinds};",
            "   * it stays reachable while the field uses it. A read-only buffer is copied before the first change.",
            "   *",
            "   * @throws IllegalArgumentException for another buffer, or one too small for {@code num} values",
            "   */",
            "  public void setValuesBuffer(int num, java.nio.Buffer buffer) {",
            "    BULK.setValuesBuffer(this, num, buffer);",
            "  }",
            "",
            "  /** As {@link #setValuesBuffer(int, java.nio.Buffer)} with as many values as the buffer has room for. */",
            "  public void setValuesBuffer(java.nio.Buffer buffer) {",
            "    BULK.setValuesBuffer(this, buffer);",
            "  }",
            "",
            f"  static native void setValuesImpl(long nativeObject, int start, int num, {e}[] values);",
            f"  static native {e}[] getValuesFlatImpl(long nativeObject, int start);",
            "  static native java.nio.Buffer startEditingImpl(long nativeObject);",
            "  static native java.nio.Buffer getDirectValuesImpl(long nativeObject);",
            "  static native void setValuesBufferImpl(long nativeObject, int num, java.nio.Buffer buffer, "
            "boolean readOnly);"]
    return out
