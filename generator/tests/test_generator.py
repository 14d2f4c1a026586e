"""The generator on the fixture headers (tests/fixtures) and on the toolkit's
own headers: names, numbers, shapes of the emitted code."""
import os
import re
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
GENERATOR = os.path.dirname(HERE)
REPO = os.path.dirname(GENERATOR)
sys.path.insert(0, GENERATOR)

from orvexgen import emit_cpp, emit_custom, emit_java, main, plan as planner, rules as rules_mod  # noqa: E402

FIXTURES = os.path.join(HERE, "fixtures")
TOOLKIT_INCLUDE = os.path.join(REPO, "toolkit", "include")


def fixture_plans():
    classes, plans = main.build_plans(os.path.join(FIXTURES, "include"), os.path.join(FIXTURES, "rules"),
                                      [TOOLKIT_INCLUDE])
    return classes, {p.name: p for p in plans}


class FixturePlans(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.classes, cls.plans = fixture_plans()

    def natives(self, name):
        return [m.native_name for m in self.plans[name].wrapped_methods()]

    def test_kinds_and_value_storage(self):
        p = self.plans["ProbeValue"]
        self.assertEqual(p.kind, "value")
        self.assertEqual((p.wrapped.elem, p.wrapped.length), ("float", 2))
        self.assertEqual(self.plans["GuardProbe"].kind, "owned")

    def test_numbering_keeps_gaps(self):
        names = self.natives("ProbeValue")
        # setValue number 0 is done in Java: no setValueImpl, but 1 and 2 keep their numbers.
        self.assertNotIn("setValueImpl", names)
        self.assertIn("setValueImpl1", names)
        self.assertIn("setValueImpl2", names)
        # Two numbers reserved by the rules for sum.
        self.assertIn("sumImpl2", names)
        self.assertNotIn("sumImpl", names)
        self.assertEqual([n for n in names if n.startswith("ctorImpl")], ["ctorImpl", "ctorImpl1", "ctorImpl2"])

    def test_operators_take_their_java_names_and_numbers(self):
        names = self.natives("ProbeValue")
        self.assertIn("multiplyImpl", names)   # *=(float)
        self.assertIn("multiplyImpl1", names)  # *=(const ProbeValue&)
        self.assertIn("addImpl", names)
        self.assertIn("equalsImpl", names)     # operator==
        self.assertIn("equalsImpl1", names)    # equals(v, tolerance)
        # operator*(float, v) does not have the class as first operand, and
        # unary minus has no Java form: neither is wrapped nor numbered.
        self.assertEqual([n for n in names if n.startswith("times")], ["timesImpl"])
        self.assertFalse([n for n in names if "minus" in n or "negate" in n])

    def test_implicit_default_constructor_is_ctorImpl(self):
        self.assertIn("ctorImpl", self.natives("GuardProbe"))
        self.assertIn("ctorImpl", self.natives("MismatchedValue"))

    def test_skipped_reasons(self):
        skipped = {m.native_name: m.skipped for m in self.plans["ProbeValue"].methods if m.skipped}
        self.assertEqual(skipped, {"setValueImpl": "implemented on the Java side"})

    def test_nested_classes_keep_their_enclosing_class_in_every_name(self):
        self.assertEqual(self.classes["ProbeNest"].nested, ["ProbeNest::Item", "ProbeNest::Span"])
        self.assertEqual(self.classes["ProbeNest::Item"].outer, "ProbeNest")
        item = self.plans["ProbeNest::Item"]
        self.assertEqual((item.kind, item.java_simple, item.binary_name, item.wrapped.qualified),
                         ("owned", "Item", "ProbeNest$Item", "com.orvexa.genprobe.ProbeNest.Item"))
        span = self.plans["ProbeNest::Span"]
        self.assertEqual((span.kind, span.wrapped.elem, span.wrapped.length), ("value", "float", 2))
        # The nested enum belongs to the nested class, and arguments of the
        # nested type are handles.
        self.assertEqual([e.cpp_name for e in item.enums], ["ProbeNest::Item::Color"])
        add = next(m for m in self.plans["ProbeNest"].methods if m.native_name == "addItemImpl")
        self.assertEqual((add.args[0].java_type, add.args[0].public_type), ("long", "ProbeNest.Item"))

    def test_array_results_and_their_element_classes(self):
        methods = {m.native_name: m for m in self.plans["ProbeNest"].wrapped_methods()}
        items, spans = methods["getItemsImpl"], methods["getSpansImpl"]
        self.assertEqual((items.result.kind, items.result.java_type, items.result.public_type, items.array_count),
                         ("array", "long", "ProbeNest.Item[]", "getNumItems"))
        self.assertEqual((spans.result.kind, spans.result.public_type, spans.array_count),
                         ("array", "ProbeNest.Span[]", "getNumSpans"))
        self.assertTrue(self.plans["ProbeNest::Item"].to_array)
        # Only classes that are the elements of an array result get it.
        self.assertFalse(self.plans["GuardProbe"].to_array)
        self.assertEqual(methods["findItemImpl"].result.kind, "handle")


class FixtureCpp(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.classes, cls.plans = fixture_plans()
        cls.cpp = {n: emit_cpp.emit(p, cls.classes, "probe") for n, p in cls.plans.items()}

    def body(self, cls, native):
        text = self.cpp[cls]
        m = re.search(r"JNICALL Java_\S+_" + native + r"\(.*?\n}\n", text, re.S)
        self.assertIsNotNone(m, native)
        return m.group(0)

    def test_read_only_operand_of_equals(self):
        eq = self.body("ProbeValue", "equalsImpl")
        self.assertIn("bHelper.toNativeArray(b, ArrayHelper::READ_ONLY)", eq)
        self.assertIn("nativeObjectArrayHelper.toNativeArray(nativeObject, ArrayHelper::READ_WRITE)", eq)
        add = self.body("ProbeValue", "addImpl")
        self.assertIn("oHelper.toNativeArray(o, ArrayHelper::READ_WRITE)", add)

    def test_receiver_pinned_before_arguments(self):
        add = self.body("ProbeValue", "addImpl")
        self.assertLess(add.index("nativeObjectArrayHelper(env)"), add.index("oHelper(env)"))

    def test_out_parameters_use_tmp_and_one_element_arrays(self):
        get = self.body("ProbeValue", "getImpl")
        self.assertIn("float aTmp{};", get)
        self.assertIn("self->get(aTmp, bTmp);", get)
        self.assertIn("*aArrayHelper.toNativeArray(a, ArrayHelper::READ_WRITE) = aTmp;", get)

    def test_value_result_goes_to_returned_value(self):
        times = self.body("ProbeValue", "timesImpl")
        self.assertIn("jfloatArray returnedValue", times)
        self.assertIn("returnedValueHelper.toNativeArray(returnedValue, ArrayHelper::READ_WRITE)", times)

    def test_check_size_message(self):
        self.assertIn('if (sizeof(MismatchedValue) != 12)', self.cpp["MismatchedValue"])
        self.assertIn('env->FatalError("com.orvexa.genprobe.MismatchedValue:: Basic type size differs in managed '
                      'and native worlds. Runtime aborted.");', self.cpp["MismatchedValue"])
        self.assertIn("sizeof(ProbeValue) != 8", self.cpp["ProbeValue"])

    def test_module_check_registration(self):
        self.assertIn('const SoModuleCheck s_moduleCheck("probe", "com.orvexa.genprobe.GuardProbe");',
                      self.cpp["GuardProbe"])

    def test_delete_handle_of_virtual_class_checks_zero(self):
        text = self.cpp["GuardProbe"]
        self.assertIn("Java_com_orvexa_genprobe_GuardProbe_00024NativeResourceHandle_deleteNativeHandleImpl", text)
        self.assertIn("if (address != 0) delete reinterpret_cast<GuardProbe*>(address);", text)

    def test_overridable_guard(self):
        d = self.body("GuardProbe", "describeImpl")
        self.assertIn("dynamic_cast<ICustomClass*>(self) != nullptr ? self->GuardProbe::describe() "
                      ": self->describe()", d)
        # A non-virtual member has no guard.
        self.assertNotIn("ICustomClass", self.body("GuardProbe", "getModeImpl"))

    def test_protected_guard(self):
        s = self.body("GuardProbe", "secretImpl")
        self.assertIn('ExceptionHelper::throwIllegalAccessException(env, "Call of protected methods not allowed.");',
                      s)
        self.assertLess(s.index("throwIllegalAccessException"), s.index("Access::get()"))

    def test_handle_arrays_string_arrays_lists_and_buffers(self):
        self.assertIn("ArrayHelper probesHandleArrayHelper(env);", self.body("ProbeList", "setProbesImpl"))
        self.assertIn("StringArrayHelper wordsHelper(env, words);", self.body("ProbeList", "joinLengthImpl"))
        self.assertIn("wordsHelper.toUTFStringArray()", self.body("ProbeList", "joinLengthImpl"))
        self.assertIn("namesHelper.toSbStringArray()", self.body("ProbeList", "joinNamesImpl"))
        plist = self.body("ProbeList", "getProbesImpl")
        self.assertIn("ArrayHelper::fromNativeArray(env, addresses.data(), addresses.size())", plist)
        self.assertIn("JNIEXPORT jlongArray JNICALL Java_com_orvexa_genprobe_ProbeList_getProbesImpl", self.cpp["ProbeList"])
        codes = self.body("ProbeList", "getCodesImpl")
        self.assertIn("env->NewDirectByteBuffer(const_cast<int*>(codesTmp), static_cast<jlong>(countTmp) * 4)", codes)
        self.assertIn("env->SetObjectArrayElement(codes, 0,", codes)
        # The count is the buffer's capacity, no Java argument.
        self.assertIn("getCodesImpl(JNIEnv* env, jclass, jlong nativeObject, jobjectArray codes)", codes)
        self.assertIn("int countTmp = 0;", codes)

    def test_enum_constants(self):
        text = self.cpp["GuardProbe"]
        self.assertIn("Java_com_orvexa_genprobe_GuardProbe_00024Mode_getLOUD_1MODE", text)
        self.assertIn("return static_cast<jint>(GuardProbe::LOUD_MODE);", text)

    def test_nested_class_symbols_escape_each_level(self):
        text = self.cpp["ProbeNest::Item"]
        self.assertIn("JNICALL Java_com_orvexa_genprobe_ProbeNest_00024Item_00024NativeResourceHandle_"
                      "deleteNativeHandleImpl(JNIEnv*, jclass, jlong address)", text)
        self.assertIn("delete reinterpret_cast<ProbeNest::Item*>(address);", text)
        self.assertIn("JNICALL Java_com_orvexa_genprobe_ProbeNest_00024Item_00024Color_getDEEP_1BLUE(", text)
        self.assertIn("return static_cast<jint>(ProbeNest::Item::DEEP_BLUE);", text)
        self.assertIn("return reinterpret_cast<jlong>(new ProbeNest::Item());", self.body("ProbeNest::Item", "ctorImpl"))
        self.assertIn("ProbeNest::Item* self = reinterpret_cast<ProbeNest::Item*>(nativeObject);",
                      self.body("ProbeNest::Item", "setValueImpl"))
        self.assertIn('const SoModuleCheck s_moduleCheck("probe", "com.orvexa.genprobe.ProbeNest$Item");', text)
        # A member of the enclosing class taking the nested type by reference.
        self.assertIn("self->addItem(*reinterpret_cast<ProbeNest::Item*>(item));", self.body("ProbeNest", "addItemImpl"))

    def test_nested_value_type(self):
        text = self.cpp["ProbeNest::Span"]
        self.assertIn("if (sizeof(ProbeNest::Span) != 8)", text)
        self.assertIn('env->FatalError("com.orvexa.genprobe.ProbeNest$Span:: Basic type size differs in managed '
                      'and native worlds. Runtime aborted.");', text)
        self.assertIn("new (self) ProbeNest::Span();", self.body("ProbeNest::Span", "ctorImpl"))
        self.assertIn("Java_com_orvexa_genprobe_ProbeNest_00024Span_toArrayImpl", text)

    def test_array_result_returns_the_address(self):
        self.assertIn("const jlong result = reinterpret_cast<jlong>(self->getItems());",
                      self.body("ProbeNest", "getItemsImpl"))

    def test_to_array_of_a_handle_class_assigns_into_each_objects_native_object(self):
        body = self.body("ProbeNest::Item", "toArrayImpl")
        self.assertIn("(JNIEnv* env, jclass clazz, jobjectArray objects, jlong address)", body)
        self.assertIn("if (objects == nullptr || address == 0) return;", body)
        self.assertIn("if (count == 0) return;", body)
        self.assertIn('env->GetMethodID(clazz, "getNativeResourceHandleInternal", "()J")', body)
        self.assertIn("*reinterpret_cast<ProbeNest::Item*>(handle) = values[i];", body)
        self.assertLess(body.index("DeleteLocalRef(element)"), body.index("ExceptionCheck"))
        # Handle classes that are no array elements have none.
        self.assertNotIn("toArrayImpl", self.cpp["GuardProbe"])

    def test_output_files_of_nested_classes(self):
        cpp, java = main.outputs("/out", self.plans["ProbeNest::Item"])
        self.assertEqual((cpp, java), ("/out/genprobe/ProbeNest_00024Item_jni.cpp", None))
        self.assertEqual(main.outputs("/out", self.plans["ProbeNest"]),
                         ("/out/genprobe/ProbeNest_jni.cpp", "/out/java/com/orvexa/genprobe/ProbeNest.java"))


class FixtureJava(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        _, cls.plans = fixture_plans()
        frag = os.path.join(FIXTURES, "fragments")
        plans = list(cls.plans.values())
        cls.java = {n: emit_java.emit(p, frag, plans) for n, p in cls.plans.items() if not p.outer}

    def test_value_class_shape(self):
        j = self.java["ProbeValue"]
        self.assertIn("public final float[] array;", j)
        self.assertIn("static native void addImpl(float[] nativeObject, float[] o);", j)
        self.assertIn("public ProbeValue add(ProbeValue o) {", j)
        # Members that take raw addresses are package-private, reached from
        # other packages only through the internal registry.
        self.assertIn("\n  static native void toArrayImpl(ProbeValue[] objects, long address);", j)
        self.assertIn("\n  static native void setValueFromHandle(float[] array, long address);", j)
        self.assertIn("\n  static ProbeValue copy(long address) {", j)
        self.assertIn("\n  static ProbeValue[] copies(long address, int count) {", j)
        self.assertIn("com.orvexa.internal.NativeAccess.register(ProbeValue.class", j)
        self.assertNotRegex(j, r"(?m)^ *public[^\n(]*\(long address")
        # A value result is written into the returned array: the native method returns nothing.
        self.assertIn("static native void timesImpl(float[] nativeObject, float s, float[] returnedValue);", j)
        self.assertIn("checkSize();", j)
        self.assertIn("public boolean equals(Object o) {", j)
        self.assertIn("public int hashCode() {", j)

    def method(self, cls, signature):
        text = self.java[cls]
        start = text.index(signature)
        return text[start:text.index("\n  }\n", start)]

    def test_arguments_are_checked_before_the_native_call(self):
        # Null value operands, enums and strings name their parameter; primitive
        # arrays must have their length; out-parameters at least one element.
        add = self.method("ProbeValue", "public ProbeValue add(ProbeValue o) {")
        self.assertIn('if (o == null) throw com.orvexa.internal.NativeCalls.nullArgument("o");', add)
        self.assertLess(add.index("nullArgument"), add.index("addImpl("))
        ctor = self.method("ProbeValue", "public ProbeValue(float[] v) {")
        self.assertIn('if (v.length != 2) throw com.orvexa.internal.NativeCalls.wrongLength("v", 2, v.length);', ctor)
        get = self.method("ProbeValue", "public void get(float[] a, float[] b) {")
        self.assertIn('if (b.length < 1) throw com.orvexa.internal.NativeCalls.tooShort("b", 1, b.length);', get)
        mode = self.method("GuardProbe", "public void setMode(GuardProbe.Mode mode) {")
        self.assertIn('if (mode == null) throw com.orvexa.internal.NativeCalls.nullArgument("mode");', mode)

    def test_value_storage_is_checked_by_construction(self):
        j = self.java["ProbeValue"]
        ctor = self.method("ProbeValue", "protected ProbeValue(float[] storage, Void adopt) {")
        self.assertIn("this(storage, 2);", ctor)
        check = self.method("ProbeValue", "\n  ProbeValue(float[] storage, int length) {")
        self.assertIn('if (storage.length != length) throw com.orvexa.internal.NativeCalls.wrongLength("storage", length,',
                      check)
        self.assertIn("return new ProbeValue(storage, null);", j)

    def test_objects_are_marked_in_flight_around_the_native_call(self):
        add = self.method("ProbeNest", "public void addItem(ProbeNest.Item item) {")
        order = [add.index(x) for x in (
            'final long self = com.orvexa.internal.NativeCalls.begin(this, "this");',
            'final long itemHandle = com.orvexa.internal.NativeCalls.begin(item, "item");',
            "addItemImpl(self, itemHandle);",
            "com.orvexa.internal.NativeCalls.end(item);",
            "com.orvexa.internal.NativeCalls.end(this);")]
        self.assertEqual(order, sorted(order))
        self.assertEqual(add.count("} finally {"), 2)

    def test_fragment_is_spliced(self):
        self.assertIn("public ProbeValue setValue(float[] v) {", self.java["ProbeValue"])

    def test_owned_class_shape(self):
        j = self.java["GuardProbe"]
        self.assertIn("public class GuardProbe extends com.orvexa.orvex.Orvex implements AutoCloseable {", j)
        self.assertIn("this(new NativeResourceHandle(ctorImpl()));", j)
        self.assertIn("private static native void deleteNativeHandleImpl(long address);", j)
        self.assertIn("protected int secret(int x) {", j)
        self.assertIn("public enum Mode {", j)
        self.assertIn("LOUD_MODE(value(Mode::getLOUD_MODE))", j)
        self.assertIn("public GuardProbe.Mode getMode() {", j)
        self.assertIn("setModeImpl(self, mode.getValue());", j)
        self.assertIn("\n  static GuardProbe adopt(long address) {", j)
        self.assertNotRegex(j, r"(?m)^ *public[^\n(]*\(long address")

    def test_nested_classes_are_static_members_of_their_enclosing_class(self):
        j = self.java["ProbeNest"]
        self.assertIn("\n  public static class Item extends com.orvexa.orvex.Orvex implements AutoCloseable {\n", j)
        self.assertIn("\n  public static class Span {\n", j)
        self.assertIn("\n    public static final class NativeResourceHandle extends com.orvexa.internal.NativeResourceHandle {"
                      "\n      NativeResourceHandle(long address) {", j)
        self.assertIn("\n      private static native int getDEEP_BLUE();\n", j)
        self.assertIn("\n      RED(value(Color::getRED)),\n      DEEP_BLUE(value(Color::getDEEP_BLUE));\n", j)
        self.assertIn("public ProbeNest.Item.Color getColor() {", j)
        # The item's Java-side constructor comes from the nested class's fragment.
        self.assertIn("\n    public Item(int id, String label) {\n      this();\n", j)
        # Nested classes are declared before the enclosing class's own members.
        self.assertLess(j.index("public static class Item"), j.index("public ProbeNest() {"))

    def test_array_results_become_arrays_of_copies(self):
        j = self.java["ProbeNest"]
        self.assertIn("return ProbeNest.Item.copies(getItemsImpl(self), getNumItems());", j)
        self.assertIn("return ProbeNest.Span.copies(getSpansImpl(self), getNumSpans());", j)
        self.assertIn("static native long getItemsImpl(long nativeObject);", j)
        self.assertIn("\n    static Item[] copies(long address, int count) {", j)
        self.assertIn("objects[i] = new Item(new NativeResourceHandle(ctorImpl()));", j)
        self.assertIn("\n    static native void toArrayImpl(Item[] objects, long address);", j)
        self.assertNotIn("toArray", self.java["GuardProbe"])

    def test_counted_arrays_must_hold_their_count(self):
        j = self.java["ProbeList"]
        self.assertIn('if ((long) probes.length < (long) (count)) '
                      'throw com.orvexa.internal.NativeCalls.tooShort("probes", count, probes.length);', j)
        self.assertIn('if (words[i] == null) throw com.orvexa.internal.NativeCalls.nullArgument("words[" + i + "]");', j)
        self.assertIn("final com.orvexa.orvex.Orvex[] probesObjects = probes.clone();\n", j)
        self.assertIn("final long[] probesHandles = com.orvexa.internal.NativeCalls.beginAll(probesObjects);", j)
        self.assertIn("com.orvexa.internal.NativeCalls.endAll(probesObjects);", j)


class FixtureCustomClass(unittest.TestCase):
    """The native subclass that forwards GuardProbe's virtuals to Java."""

    @classmethod
    def setUpClass(cls):
        cls.classes, plans = main.build_plans(os.path.join(FIXTURES, "include"), os.path.join(FIXTURES, "rules"),
                                              [TOOLKIT_INCLUDE])
        (plan, cls.forwarded), = main.custom_plans(cls.classes, plans)
        cls.header = emit_custom.emit_header(plan.cls, cls.forwarded)
        cls.source = emit_custom.emit_source(plan.cls, cls.forwarded, "com/orvexa/genprobe/GuardProbe",
                                             "CustomGuardProbe.h", [])

    def test_class_shape(self):
        self.assertIn("class CustomGuardProbe : public GuardProbe, public ICustomClass {", self.header)
        self.assertIn("  const char * describe() const override;", self.header)
        self.assertIn("  static jmethodID s_methodIds[4];", self.header)
        self.assertIn("  mutable std::string m_describeText;", self.header)

    def test_method_identifier_table_in_rules_order_after_the_handle_getter(self):
        rows = re.findall(r'\{"(\w+)", "([^"]+)"\}', self.source)
        self.assertEqual(rows, [("getNativeResourceHandleInternal", "()J"),
                                ("describe", "()Ljava/lang/String;"),
                                ("scaled", "(F)F"),
                                ("preferredMode", "(Lcom/orvexa/genprobe/GuardProbe$Mode;)"
                                                  "Lcom/orvexa/genprobe/GuardProbe$Mode;")])

    def test_stub_calls_java_and_turns_an_exception_into_the_named_argument_exception(self):
        stub = self.source[self.source.index("GuardProbe::Mode CustomGuardProbe::preferredMode("):]
        order = [stub.index(x) for x in (
            "JNIEnvHelper::getEnv()",
            'ObjectHelper::getEnum(env, "com.orvexa.genprobe.GuardProbe$Mode", static_cast<jint>(given))',
            "env->CallObjectMethod(javaObject, s_methodIds[3], givenRef.get())",
            'throwIllegalArgException(env, "Exception raised during execution of CustomGuardProbe.preferredMode.")',
            "ObjectHelper::getEnumValue(env, javaResult)")]
        self.assertEqual(order, sorted(order))

    def test_forwarding_a_member_that_is_not_virtual_is_an_error(self):
        with tempfile.TemporaryDirectory() as d:
            with open(os.path.join(d, "com.orvexa.genprobe.toml"), "w") as f:
                f.write('classes = ["GuardProbe"]\nextensible = ["GuardProbe"]\n'
                        '[class.GuardProbe]\nforward = ["getMode() const"]\n')
            classes, plans = main.build_plans(os.path.join(FIXTURES, "include"), d, [TOOLKIT_INCLUDE])
            with self.assertRaises(emit_custom.CustomError):
                main.custom_plans(classes, plans)


class Determinism(unittest.TestCase):
    def test_two_runs_write_identical_files(self):
        args = ["--include-root", os.path.join(FIXTURES, "include"), "--rules-dir", os.path.join(FIXTURES, "rules"),
                "--extra-include", TOOLKIT_INCLUDE, "--fragments-dir", os.path.join(FIXTURES, "fragments")]
        with tempfile.TemporaryDirectory() as a, tempfile.TemporaryDirectory() as b:
            self.assertEqual(main.main(args + ["--out-dir", a]), 0)
            self.assertEqual(main.main(args + ["--out-dir", b]), 0)
            files_a = sorted(os.path.relpath(os.path.join(d, f), a) for d, _, fs in os.walk(a) for f in fs)
            files_b = sorted(os.path.relpath(os.path.join(d, f), b) for d, _, fs in os.walk(b) for f in fs)
            self.assertEqual(files_a, files_b)
            # Five Java classes (nested ones live in their enclosing class's
            # file), seven C++ files (one per Java class, nested ones too), and
            # the header and source of CustomGuardProbe.
            self.assertEqual(len(files_a), 14)
            self.assertEqual(len([f for f in files_a if f.endswith(".java")]), 5)
            for f in files_a:
                with open(os.path.join(a, f)) as fa, open(os.path.join(b, f)) as fb:
                    self.assertEqual(fa.read(), fb.read(), f)


class Rules(unittest.TestCase):
    def write(self, d, text, name="com.orvexa.genprobe.toml"):
        path = os.path.join(d, name)
        with open(path, "w") as f:
            f.write(text)
        return path

    def test_unknown_keys_are_refused(self):
        with tempfile.TemporaryDirectory() as d:
            with self.assertRaises(ValueError):
                rules_mod.load(self.write(d, 'classes = ["GuardProbe"]\nwrapped = ["x"]\n'))

    def test_operator_table_must_name_operators(self):
        with tempfile.TemporaryDirectory() as d:
            with self.assertRaises(ValueError):
                rules_mod.load(self.write(d, 'classes = []\n[operators]\n"+=" = "add"\nread_write = ["equals"]\n'))

    def plan_error(self, rules_text):
        with tempfile.TemporaryDirectory() as d:
            self.write(d, rules_text)
            with self.assertRaises(planner.PlanError) as caught:
                main.build_plans(os.path.join(FIXTURES, "include"), d, [TOOLKIT_INCLUDE])
            return str(caught.exception)

    def test_nested_class_needs_its_enclosing_class(self):
        self.assertIn("needs its enclosing class ProbeNest", self.plan_error('classes = ["ProbeNest::Item"]\n'))

    def test_array_results_are_checked(self):
        nest = 'classes = ["ProbeNest", "ProbeNest::Item"]\n[class.ProbeNest]\n'
        self.assertIn("names no member", self.plan_error(nest + 'array_results = { getThings = "getNumItems" }\n'))
        self.assertIn("needs a wrapped member int getNumThings()",
                      self.plan_error(nest + 'array_results = { getItems = "getNumThings" }\n'))
        self.assertIn("must point to objects of a wrapped class",
                      self.plan_error(nest + 'array_results = { getNumItems = "getNumItems" }\n'))
        # The element class needs a constructor Java can call to make the copies.
        self.assertIn("need a wrapped constructor without arguments",
                      self.plan_error(nest + 'array_results = { getItems = "getNumItems" }\n'
                                      '[class."ProbeNest::Item"]\njava_side = ["Item()"]\n'))

    def test_java_side_must_name_an_overload(self):
        with tempfile.TemporaryDirectory() as d:
            self.write(d, 'classes = ["GuardProbe"]\n[class.GuardProbe]\njava_side = ["describe(int)"]\n')
            with self.assertRaises(planner.PlanError):
                main.build_plans(os.path.join(FIXTURES, "include"), d, [TOOLKIT_INCLUDE])


class ToolkitHeaders(unittest.TestCase):
    """The entry-point names of the toolkit's own math classes."""

    @classmethod
    def setUpClass(cls):
        cls.classes, plans = main.build_plans(TOOLKIT_INCLUDE, os.path.join(GENERATOR, "rules"))
        cls.plans = {p.name: p for p in plans}

    def natives(self, name, prefix):
        return sorted(m.native_name for m in self.plans[name].wrapped_methods()
                      if re.fullmatch(prefix + r"\d*", m.native_name))

    def test_child_indices_are_checked_against_the_number_of_children(self):
        emitted = emit_java.emit(self.plans["SoGroup"], None, list(self.plans.values()))
        # The bound comes from the count's entry point, inside the receiver's
        # bracket (after its begin, so on the address marked in flight).
        get_child = emitted[emitted.index("public SoNode getChild(int index)"):]
        get_child = get_child[:get_child.index("\n  }\n")]
        self.assertLess(get_child.index("NativeCalls.begin(this"), get_child.index("getNumChildrenImpl(self)"))
        self.assertIn("final int indexBound = getNumChildrenImpl(self);", get_child)
        self.assertIn("if (index < 0 || index >= indexBound) throw new IndexOutOfBoundsException(", get_child)
        self.assertLess(get_child.index("IndexOutOfBoundsException"), get_child.index("getChildImpl(self, index)"))
        self.assertIn("if (newChildIndex < 0 || newChildIndex > newChildIndexBound) throw new IndexOutOfBoundsException(",
                      emitted)
        # A bound that is no query of the receiver stays a Java expression.
        face = emit_java.emit(self.plans["SoFaceDetail"], None, list(self.plans.values()))
        self.assertIn("if (num < 0 || num > 1 << 20) throw new IndexOutOfBoundsException(", face)

    def test_default_arguments_become_overloads_that_pass_them(self):
        emitted = emit_java.emit(self.plans["SoRayPickAction"], None, list(self.plans.values()))
        self.assertIn("  public void setRay(com.orvexa.orvex.SbVec3f start, com.orvexa.orvex.SbVec3f direction) {\n"
                      "    setRay(start, direction, (float) (-1.0), (float) (-1.0));", emitted)
        self.assertIn("    return getPickedPoint((int) (0));", emitted)

    def test_node_fields_are_final_java_fields_bound_by_name(self):
        emitted = emit_java.emit(self.plans["SoSphere"], None, list(self.plans.values()))
        self.assertIn("public final com.orvexa.orvex.fields.SoSFFloat radius;", emitted)
        self.assertIn('radius = fieldOf(com.orvexa.orvex.fields.SoSFFloat.class, "radius");', emitted)
        self.assertIn("this(new com.orvexa.internal.RefCountedNativeResourceHandle(ctorImpl()));", emitted)

    def test_sbvec3f_constructors_and_setters(self):
        self.assertEqual(self.natives("SbVec3f", "ctorImpl"), ["ctorImpl3"])
        self.assertEqual(self.natives("SbVec3f", "setValueImpl"), ["setValueImpl2", "setValueImpl3"])

    def test_sbrotation_entry_points(self):
        self.assertEqual(self.natives("SbRotation", "setValueImpl"), [f"setValueImpl{i}" for i in range(1, 8)])
        self.assertEqual(self.natives("SbRotation", "ctorImpl"), ["ctorImpl"] + [f"ctorImpl{i}" for i in range(1, 7)])
        names = {m.native_name for m in self.plans["SbRotation"].wrapped_methods()}
        for n in ("multiplyImpl", "getMatrixImpl", "getMatrixdImpl", "getMatrix3Impl", "multVecImpl", "slerpImpl",
                  "scaleAngleImpl", "inverseImpl", "invertImpl", "identityImpl", "decomposeImpl", "equalsImpl",
                  "equalsImpl1"):
            self.assertIn(n, names)

    def test_sbvec3f_operator_table(self):
        names = {m.native_name: m for m in self.plans["SbVec3f"].wrapped_methods()}
        for n in ("addImpl", "substractImpl", "multiplyImpl", "multiplyImpl1", "divideImpl", "negateImpl",
                  "equalsImpl", "equalsImpl1", "plusImpl", "minusImpl", "timesImpl", "timesImpl1", "overImpl",
                  "crossImpl", "dotImpl", "lengthImpl", "lengthSquaredImpl", "normalizeImpl", "getClosestAxisImpl"):
            self.assertIn(n, names)
        self.assertEqual(names["multiplyImpl"].cfunc.params[0].type.kind, "prim")       # *=(float)
        self.assertEqual(names["timesImpl1"].cfunc.params[1].type.kind, "prim")          # *(v, float)

    def test_sbvec3f_access_modes(self):
        cpp = emit_cpp.emit(self.plans["SbVec3f"], self.classes, "orvexjava")

        def body(native):
            m = re.search(r"JNICALL Java_com_orvexa_orvex_SbVec3f_" + native + r"\(.*?\n}\n", cpp, re.S)
            self.assertIsNotNone(m, native)
            return m.group(0)

        receiver = "nativeObjectArrayHelper.toNativeArray(nativeObject, ArrayHelper::READ_WRITE)"
        # The other operand of an equality test is released without copying back ...
        for native, other in (("equalsImpl", "b"), ("equalsImpl1", "v")):
            self.assertIn(receiver, body(native))
            self.assertIn(f"{other}Helper.toNativeArray({other}, ArrayHelper::READ_ONLY)", body(native))
        # ... while add's operand is copied back although it is only read.
        self.assertIn(receiver, body("addImpl"))
        self.assertIn("vHelper.toNativeArray(v, ArrayHelper::READ_WRITE)", body("addImpl"))

    def test_value_sizes(self):
        expected = {"SbVec3f": ("float", 3), "SbVec4ub": ("byte", 4), "SbBox4i32": ("int", 8),
                    "SbXfBox3f": ("float", 38), "SbXfBox3d": ("double", 38), "SbMatrix3": ("float", 9),
                    "SbCylinder": ("float", 7), "SbLined": ("double", 6), "SbRotationd": ("double", 4)}
        for name, shape in expected.items():
            w = self.plans[name].wrapped
            self.assertEqual((w.elem, w.length), shape, name)

    def test_errors_package(self):
        self.assertEqual(self.plans["SoMemoryError"].package, "com.orvexa.orvex.errors")
        names = {m.native_name for m in self.plans["SoMemoryError"].wrapped_methods()}
        self.assertIn("postImpl1", names)
        self.assertEqual({m.native_name for m in self.plans["SoDebugError"].wrapped_methods()} &
                         {"postImpl", "postWarningImpl", "postInfoImpl", "getSeverityImpl"},
                         {"postImpl", "postWarningImpl", "postInfoImpl", "getSeverityImpl"})
        self.assertTrue(all(self.plans[n].class_type_id for n in
                            ("SoError", "SoDebugError", "SoGLError", "SoMemoryError", "SoReadError", "SoErrorStack")))

    def test_error_stack_and_its_frames(self):
        stack = {m.native_name: m for m in self.plans["SoErrorStack"].wrapped_methods()}
        self.assertTrue({"postImpl", "getStackImpl", "getNumFramesImpl", "getFramesImpl"} <= set(stack))
        self.assertNotIn("getStackFramesImpl", stack, "fills a C array; not for Java")
        self.assertEqual((stack["getFramesImpl"].result.kind, stack["getFramesImpl"].array_count),
                         ("array", "getNumFrames"))
        frame = self.plans["SoErrorStack::StackFrame"]
        self.assertEqual((frame.kind, frame.binary_name, frame.to_array), ("owned", "SoErrorStack$StackFrame", True))
        names = {m.native_name for m in frame.wrapped_methods()}
        self.assertTrue({"ctorImpl", "setValueImpl", "equalsImpl"} <= names, names)
        self.assertNotIn("ctorImpl1", names, "the full constructor is done in Java")
        cpp = emit_cpp.emit(frame, self.classes, "orvexjava")
        for symbol in ("Java_com_orvexa_orvex_errors_SoErrorStack_00024StackFrame_ctorImpl(",
                       "Java_com_orvexa_orvex_errors_SoErrorStack_00024StackFrame_setValueImpl(",
                       "Java_com_orvexa_orvex_errors_SoErrorStack_00024StackFrame_toArrayImpl(",
                       "Java_com_orvexa_orvex_errors_SoErrorStack_00024StackFrame_00024NativeResourceHandle_"
                       "deleteNativeHandleImpl("):
            self.assertIn(symbol, cpp)


class ServicesAndLists(unittest.TestCase):
    """Toolkit types, lists, out-strings and the root services on the toolkit's headers."""

    @classmethod
    def setUpClass(cls):
        cls.classes, plans = main.build_plans(TOOLKIT_INCLUDE, os.path.join(GENERATOR, "rules"))
        cls.plans = {p.name: p for p in plans}

    def java(self, name):
        return emit_java.emit(self.plans[name], None, list(self.plans.values()))

    def cpp(self, name):
        return emit_cpp.emit(self.plans[name], self.classes, "orvexjava")

    def method(self, cls, native):
        return next(m for m in self.plans[cls].methods if m.native_name == native)

    def test_toolkit_types_are_names_with_class_overloads(self):
        java = self.java("SoSearchAction")
        self.assertIn("  public void setType(String type, boolean derivedIsOk) {", java)
        self.assertIn("  public void setType(Class<? extends com.orvexa.orvex.Orvex> type, boolean derivedIsOk) {\n"
                      "    setType(com.orvexa.internal.TypeNames.of(type, \"type\"), derivedIsOk);", java)
        # The default-argument form has its class overload too.
        self.assertIn("  public void setType(Class<? extends com.orvexa.orvex.Orvex> type) {\n"
                      "    setType(com.orvexa.internal.TypeNames.of(type, \"type\"), true);", java)
        self.assertIn("SoType::fromName(SbName(typeTypeNameHelper.toUTFString()))", self.cpp("SoSearchAction"))
        # Results: the name.
        self.assertEqual(self.method("SoDB", "getConverterImpl").result.public_type, "String")

    def test_lists_of_wrapped_objects_are_java_lists(self):
        paths = self.method("SoSearchAction", "getPathsImpl")
        self.assertEqual((paths.result.kind, paths.result.java_type, paths.result.public_type),
                         ("olist", "long[]", "java.util.List<com.orvexa.orvex.SoPath>"))
        self.assertIn("return com.orvexa.internal.NativeLists.managed(com.orvexa.orvex.SoPath.class, "
                      "getPathsImpl(self));", self.java("SoSearchAction"))
        # Picked points live in the action until its next apply: lent by it.
        # SoPickedPointList is no SbPList.
        self.assertIn("NativeLists.lentUntilRenewed(com.orvexa.orvex.SoPickedPoint.class, getPickedPointListImpl(self), "
                      "this)", self.java("SoRayPickAction"))
        self.assertIn("com.orvexa.internal.NativeCalls.renew(this);", self.java("SoAction"))
        # A copy is the caller's.
        self.assertIn("return SoPickedPoint.adopt(copyImpl(self));", self.java("SoPickedPoint"))
        cpp = self.cpp("SoRayPickAction")
        self.assertIn("const SoPickedPointList& listValue = self->getPickedPointList();", cpp)
        self.assertIn("addresses[i] = reinterpret_cast<long long>(list->get(static_cast<int>(i)));", cpp)
        # A list given as a pointer may be absent: null.
        self.assertIn("if (list != nullptr) {", self.cpp("SoAction"))
        # Nodes of a child list.
        self.assertEqual(self.method("SoGroup", "getChildrenImpl").result.public_type,
                         "java.util.List<SoNode>")

    def test_lists_the_toolkit_fills_are_java_lists_the_caller_passes(self):
        m = self.method("SoNode", "getByNameImpl1")
        self.assertEqual(m.args[1].public_type, "java.util.List<? super SoNode>")
        java = self.java("SoNode")
        self.assertIn("final Object[] listOut = new Object[1];", java)
        self.assertIn("final int nativeResult = getByNameImpl1(name, listOut);\n"
                      "    list.addAll(com.orvexa.internal.NativeLists.managed(SoNode.class, (long[]) listOut[0]));\n"
                      "    return nativeResult;", java)
        cpp = self.cpp("SoNode")
        # The local list does not reference the nodes: dropping it leaves their counts alone.
        self.assertIn("SoNodeList listTmp;\n  listTmp.addReferences(false);", cpp)
        self.assertIn("env->SetObjectArrayElement(list, 0, listAddresses);", cpp)

    def test_const_lists_are_built_from_the_callers_java_list(self):
        m = self.method("SoAction", "applyImpl2")
        self.assertEqual(m.args[0].public_type, "java.util.List<? extends com.orvexa.orvex.SoPath>")
        java = self.java("SoAction")
        self.assertIn("    for (int i = 0; i < pathList.size(); i++) {\n"
                      "      final Object element = pathList.get(i);\n"
                      "      if (element == null) throw com.orvexa.internal.NativeCalls.nullArgument(", java)
        self.assertIn("      if (!(element instanceof com.orvexa.orvex.SoPath)) throw new IllegalArgumentException(", java)
        self.assertIn("NativeCalls.beginAll(pathListObjects);", java)
        self.assertIn("pathListTmp.append(reinterpret_cast<SoPath*>(handles[i]));", self.cpp("SoAction"))

    def test_written_strings_come_back_in_one_element_arrays(self):
        m = self.method("SoFieldContainer", "getFieldNameImpl")
        self.assertEqual([a.java_type for a in m.args], ["long", "String[]"])
        cpp = self.cpp("SoFieldContainer")
        self.assertIn("SbName fieldNameTmp;", cpp)
        self.assertIn("StringHelper::fromNativeString(env, fieldNameTmp);", cpp)

    def test_text_overloads_keep_the_sbstring_form_native(self):
        names = {m.native_name for m in self.plans["SoInput"].wrapped_methods()}
        self.assertTrue({"pushFileImpl1", "addDirectoryFirstImpl1", "addEnvDirectoriesFirstImpl1",
                         "removeDirectoryImpl1", "findAbsolutePathImpl", "findAbsolutePathImpl1"} <= names, names)
        self.assertNotIn("pushFileImpl", names)
        self.assertIn("the SbString form is the native one", self.method("SoInput", "pushFileImpl").skipped)

    def test_static_service_classes_have_no_objects(self):
        db = self.plans["SoDB"]
        self.assertEqual((db.kind, db.java_base), ("static", ""))
        java = self.java("SoDB")
        self.assertIn("public class SoDB {", java)
        self.assertIn("  protected SoDB() {", java)
        self.assertNotIn("NativeResourceHandle", java)
        names = {m.native_name for m in db.wrapped_methods()}
        for n in ("addConverterImpl", "getConverterImpl", "removeConverterImpl", "addPluginImpl", "removePluginImpl",
                  "addPluginsDirectoryImpl", "removePluginsDirectoryImpl", "createGlobalFieldImpl",
                  "getGlobalFieldImpl", "createRouteImpl", "removeRouteImpl",
                  "getCurrentTimeImpl", "getDelaySensorTimeoutImpl", "setDelaySensorTimeoutImpl",
                  "getRealTimeIntervalImpl", "setRealTimeIntervalImpl", "getNumRenderCachesImpl",
                  "setNumRenderCachesImpl", "getRenderCacheModeImpl", "setRenderCacheModeImpl",
                  "isPrioritizedChildrenCachingImpl", "prioritizeChildrenCachingImpl", "getHeaderStringImpl",
                  "getNumHeadersImpl", "getVersionImpl", "isMultiThreadImpl", "processEventsImpl",
                  "getTuneLuxAllowedImpl",
                  "setTuneLuxAllowedImpl", "readNodeImpl", "readAllImpl", "isValidHeaderImpl"):
            self.assertIn(n, names)
        self.assertIn("ctorImpl", {m.native_name for m in db.methods if m.skipped})
        # Guarded on the Java side, over hand-written entry points of the same names.
        java_side = {m.native_name for m in db.methods if m.skipped == "implemented on the Java side"}
        self.assertTrue({"readlockImpl", "readunlockImpl", "writelockImpl", "writeunlockImpl",
                         "renameGlobalFieldImpl"} <= java_side, java_side)

    def test_objects_that_count_their_own_references(self):
        cache = self.plans["SoBoundingBoxCache"]
        self.assertTrue(cache.self_counted)
        cpp = self.cpp("SoBoundingBoxCache")
        self.assertIn("object->ref();  // Java's reference", cpp)
        self.assertIn("if (address != 0) reinterpret_cast<SoBoundingBoxCache*>(address)->unref();", cpp)
        self.assertFalse(self.plans["SoInput"].self_counted)


if __name__ == "__main__":
    unittest.main()
