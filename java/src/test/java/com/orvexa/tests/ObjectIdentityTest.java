package com.orvexa.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertInstanceOf;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.internal.DynamicTypeManager;
import com.orvexa.internal.ObjectManager;
import com.orvexa.internal.RefCountedNativeResourceHandle;
import com.orvexa.meshlux.mesh.PoProbeField;
import com.orvexa.orvex.Orvex;
import com.orvexa.orvex.fields.SoProbeField;
import com.orvexa.orvex.fields.SoSFInt;
import com.orvexa.orvex.misc.SoBase;
import com.orvexa.orvex.nodes.SoProbeNode;
import com.orvexa.testsupport.ProbeEnum;
import com.orvexa.testsupport.RuntimeProbe;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

class ObjectIdentityTest {
  private static final String FIELD_BASE = "com/orvexa/orvex/fields/SoField";

  @BeforeAll
  static void load() {
    RuntimeProbe.init();
  }

  @Test
  void javaNamesAreDerivedFromToolkitTypeNamesAlikeOnBothSides() {
    String[][] cases = {
      {"SFUInt32", "SoSFInt"}, {"SoSFUInt32", "SoSFInt"}, {"SFInt32", "SoSFInt"}, {"MFUShort", "SoMFShort"},
      {"SFVec2i32", "SoSFVec2i"}, {"PoMeshProperty", "PoMeshProperty"}, {"Separator", "SoSeparator"},
      {"SoCube", "SoCube"}, {"SFUnits", "SoSFUnits"},
    };
    for (String[] c : cases) {
      assertEquals(c[1], RuntimeProbe.deriveJavaSimpleName(c[0]), c[0]);
      assertEquals(c[1], ObjectManager.javaSimpleNameOf(c[0]), c[0]);
    }
  }

  @Test
  void unsignedFieldIsWrappedByTheSignedJavaClass() {
    Object field = RuntimeProbe.makeJavaObj(FIELD_BASE, "SFUInt32");
    SoSFInt wrapper = assertInstanceOf(SoSFInt.class, field);
    assertEquals(RuntimeProbe.typedProbeAddress("SFUInt32"), wrapper.getNativeResourceHandleInternal());
    // Native code asking again for the same address gets the same wrapper.
    assertSame(wrapper, RuntimeProbe.managedObject("com.orvexa.orvex.fields.SoSFInt", RuntimeProbe.typedProbeAddress("SFUInt32")));
  }

  @Test
  void foundClassNamesAreSearchedOnceAndMissesEveryTime() {
    long before = RuntimeProbe.javaClassSearchCount();
    Object first = RuntimeProbe.makeJavaObj(FIELD_BASE, "ProbeField");
    Object second = RuntimeProbe.makeJavaObj(FIELD_BASE, "ProbeField");
    assertInstanceOf(SoProbeField.class, first, "a name without So/Po is searched with So in front");
    assertSame(first, second);
    assertEquals(before + 1, RuntimeProbe.javaClassSearchCount(), "the second lookup is served by the cache");

    try (StderrCapture err = new StderrCapture()) {
      assertNull(RuntimeProbe.makeJavaObj(FIELD_BASE, "ProbeTypeWithoutClass"));
      assertNull(RuntimeProbe.makeJavaObj(FIELD_BASE, "ProbeTypeWithoutClass"));
      assertTrue(err.text().contains("ProbeTypeWithoutClass"), "the last failed lookup is described");
    }
    assertEquals(before + 3, RuntimeProbe.javaClassSearchCount(), "names found nowhere are not cached");
  }

  @Test
  void poPrefixIsKeptAndLaterPackagesAreSearched() {
    assertInstanceOf(PoProbeField.class, RuntimeProbe.makeJavaObj("com/orvexa/orvex/actions/SoAction", "PoProbeField"));
  }

  @Test
  void otherClassNamesAreUsedAsTheyAre() {
    Object o = RuntimeProbe.makeJavaObj("com/orvexa/meshlux/mesh/PoProbeField", "AnyTypeName");
    PoProbeField wrapper = assertInstanceOf(PoProbeField.class, o);
    assertEquals(RuntimeProbe.typedProbeAddress("AnyTypeName"), wrapper.getNativeResourceHandleInternal());
    assertNull(RuntimeProbe.makeJavaObj("com/orvexa/NoSuchWrapper", "AnyTypeName"));
  }

  @Test
  void nullObjectOrEmptyClassNameGivesNull() {
    assertNull(RuntimeProbe.makeJavaObj(FIELD_BASE, null));
    assertNull(RuntimeProbe.makeJavaObj("", "SFUInt32"));
    assertNull(RuntimeProbe.makeJavaObj(null, "SFUInt32"));
  }

  @Test
  void referenceCountedObjectsHaveOneWrapperHoldingOneReference() {
    int alive = RuntimeProbe.probeNodesAlive();
    long address = RuntimeProbe.newProbeNode();
    SoProbeNode node = assertInstanceOf(SoProbeNode.class, RuntimeProbe.soBaseJava(address));
    assertEquals(address, node.getNativeResourceHandleInternal());
    assertEquals(1, ((RefCountedNativeResourceHandle) node.getNativeResourceHandle()).getRefCount());
    assertSame(node, RuntimeProbe.soBaseJava(address));
    assertSame(node, ObjectManager.getManagedObjectForInternal(SoBase.class, address));
    assertSame(node, RuntimeProbe.managedObject("com.orvexa.orvex.misc.SoBase", address));
    assertSame(node, RuntimeProbe.managedObject("com/orvexa/orvex/misc/SoBase", address));
    assertEquals(1, ((RefCountedNativeResourceHandle) node.getNativeResourceHandle()).getRefCount());

    node.dispose();  // drops the only reference: the toolkit deletes the node
    assertEquals(alive, RuntimeProbe.probeNodesAlive());
    assertNull(RuntimeProbe.soBaseJava(0));
  }

  @Test
  void theMostSpecificClassIsChosenFromTheNativeTypeName() {
    long address = RuntimeProbe.newProbeNode();
    Orvex wrapper = ObjectManager.getManagedObjectForInternal(SoBase.class, address);
    assertInstanceOf(SoProbeNode.class, wrapper);
    wrapper.dispose();
  }

  private static void wrapAndForget() {
    long address = RuntimeProbe.newProbeNode();
    assertInstanceOf(SoProbeNode.class, RuntimeProbe.soBaseJava(address));
  }

  @Test
  void collectingTheWrapperReleasesTheNativeObject() throws InterruptedException {
    int alive = RuntimeProbe.probeNodesAlive();
    wrapAndForget();
    assertEquals(alive + 1, RuntimeProbe.probeNodesAlive());
    long deadline = System.nanoTime() + 10_000_000_000L;
    while (RuntimeProbe.probeNodesAlive() > alive && System.nanoTime() < deadline) {
      System.gc();
      Thread.sleep(20);
    }
    assertEquals(alive, RuntimeProbe.probeNodesAlive());
  }

  public static final class Plain {
    public Plain() {}
  }

  @Test
  void objectHelperCreatesJavaObjectsAndReplacesJavaExceptions() {
    assertInstanceOf(Plain.class, RuntimeProbe.newInstanceOf("com.orvexa.tests.ObjectIdentityTest$Plain"));
    assertInstanceOf(Plain.class, RuntimeProbe.newInstanceOf("com/orvexa/tests/ObjectIdentityTest$Plain"));
    try (StderrCapture err = new StderrCapture()) {
      IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
          () -> RuntimeProbe.newInstanceOf("com.orvexa.NoSuchClass"));
      assertEquals("ObjectHelper::getManagedObject : exception raised during execution of ObjectManager.newInstance",
          e.getMessage());
      e = assertThrows(IllegalArgumentException.class, () -> RuntimeProbe.managedObject("com.orvexa.NoSuchClass", 8));
      assertEquals("ObjectHelper::getManagedObject : exception raised during execution of ObjectManager.getManagedObjectFor",
          e.getMessage());
      assertTrue(err.text().contains("com.orvexa.NoSuchClass"), "the Java exception is described first");
    }
  }

  @Test
  void enumerationsCrossAsTheirIntValues() {
    assertSame(ProbeEnum.HIGH, RuntimeProbe.enumOf("com/orvexa/testsupport/ProbeEnum", 7));
    assertSame(ProbeEnum.LOW, RuntimeProbe.enumOf("com.orvexa.testsupport.ProbeEnum", 3));
    assertNull(RuntimeProbe.enumOf("com.orvexa.testsupport.ProbeEnum", 5));
    assertEquals(7, RuntimeProbe.enumValueOf(ProbeEnum.HIGH));
    try (StderrCapture err = new StderrCapture()) {
      IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
          () -> RuntimeProbe.enumOf("java.lang.String", 1));
      assertEquals("ObjectHelper::getJavaEnum : exception raised during execution of ObjectManager.getEnumValueOf",
          e.getMessage());
      e = assertThrows(IllegalArgumentException.class, () -> RuntimeProbe.enumValueOf(new Object()));
      assertEquals("ObjectHelper::getJavaEnumValue : unable to find getValue method.", e.getMessage());
      assertEquals(-1, RuntimeProbe.lastEnumValueResult());
      e = assertThrows(IllegalArgumentException.class, () -> RuntimeProbe.enumValueOf(null));
      assertEquals("ObjectHelper::getJavaEnumValue : unable to find class.", e.getMessage());
    }
  }

  @Test
  void javaDefinedTypesAreInstantiatedThroughDynamicTypeManager() {
    List<Orvex> created = new ArrayList<>();
    DynamicTypeManager.registerType("ProbeDynamicType", () -> {
      Orvex o = ObjectManager.getManagedObject(SoProbeNode.class, RuntimeProbe.newProbeNode());
      created.add(o);
      return o;
    });
    try {
      long handle = RuntimeProbe.dynamicInstance("ProbeDynamicType");
      assertEquals(1, created.size());
      assertEquals(created.get(0).getNativeResourceHandleInternal(), handle);
      try (StderrCapture err = new StderrCapture()) {
        IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
            () -> RuntimeProbe.dynamicInstance("ProbeUnregisteredType"));
        assertEquals("ObjectHelper::getManagedObject : exception raised during execution of DynamicTypeManager.newInstance",
            e.getMessage());
      }
    } finally {
      DynamicTypeManager.unregisterType("ProbeDynamicType");
      created.forEach(Orvex::dispose);
    }
  }
}
