"""JNI symbol names and header-folder packages."""
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

from orvexgen.naming import java_package, jni_name, package_dir  # noqa: E402


class JniNames(unittest.TestCase):
    def test_plain_method(self):
        self.assertEqual(jni_name("com.orvexa.orvex", "SbVec3f", "setValueImpl2"),
                         "Java_com_orvexa_orvex_SbVec3f_setValueImpl2")

    def test_nested_class_uses_00024(self):
        self.assertEqual(jni_name("com.orvexa.orvex.nodes", "SoDepthBuffer$DepthWriteFunctions", "getNEVER"),
                         "Java_com_orvexa_orvex_nodes_SoDepthBuffer_00024DepthWriteFunctions_getNEVER")
        self.assertEqual(jni_name("com.orvexa.orvex", "SoInput$NativeResourceHandle", "deleteNativeHandleImpl"),
                         "Java_com_orvexa_orvex_SoInput_00024NativeResourceHandle_deleteNativeHandleImpl")

    def test_underscore_is_escaped(self):
        self.assertEqual(jni_name("com.orvexa.orvex", "SbDataType$DataType", "getUNSIGNED_BYTE"),
                         "Java_com_orvexa_orvex_SbDataType_00024DataType_getUNSIGNED_1BYTE")

    def test_non_ascii_is_escaped(self):
        self.assertEqual(jni_name("p", "C", "m\u00e9"), "Java_p_C_m_000e9")


class Packages(unittest.TestCase):
    def test_folders(self):
        self.assertEqual(java_package("Orvex"), "com.orvexa.orvex")
        self.assertEqual(java_package("Orvex/errors"), "com.orvexa.orvex.errors")
        self.assertEqual(java_package("MeshLux"), "com.orvexa.meshlux")
        self.assertEqual(java_package("Orvex/nodekits"), "com.orvexa.orvex.nodekits")

    def test_output_directories(self):
        self.assertEqual(package_dir("com.orvexa.orvex"), "orvex")
        self.assertEqual(package_dir("com.orvexa.orvex.errors"), "orvex/errors")


if __name__ == "__main__":
    unittest.main()
