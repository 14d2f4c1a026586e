package com.orvexa.testsupport;

import com.orvexa.orvex.Orvex;

/** Natives of the test support library that drive the bridge helpers from Java. */
public final class RuntimeProbe {
  /** The access modes of the array helper, as their int values. */
  public static final int READ_WRITE = 0;
  public static final int COMMIT = 1;
  public static final int READ_ONLY = 2;

  static {
    Orvex.init();
    System.loadLibrary("orvexjava_testsupport");
  }

  private RuntimeProbe() {}

  public static void init() {}

  // strings
  public static native String unicodeRoundTrip(String s);
  public static native byte[] utfView(String s);
  public static native int wideViewLength(String s);
  public static native boolean viewsAreCached(String s);
  public static native String[] sbStringArrayRoundTrip(String[] a);
  public static native String[] utfStringArrayRoundTrip(String[] a);
  public static native String[] fromNativeStringOverloads(String s);
  public static native boolean writeThroughFileHelper(String path, String text);

  // arrays
  public static native boolean fillFloats(float[] a, int mode, float v);
  public static native boolean fillDoubles(double[] a, int mode, double v);
  public static native boolean fillLongs(long[] a, int mode, long v);
  public static native boolean fillInts(int[] a, int mode, int v);
  public static native boolean fillShorts(short[] a, int mode, short v);
  public static native boolean fillBytes(byte[] a, int mode, byte v);
  public static native long unsignedIntAt(int[] a, int index);
  public static native int unsignedShortAt(short[] a, int index);
  public static native int unsignedByteAt(byte[] a, int index);
  public static native boolean sameViewTwice(int[] a, int mode);
  public static native void writeUnderTwoModes(int[] a, int firstValue, int secondValue);
  public static native boolean secondArrayRefused(int[] first, int[] second);
  public static native int[] booleanView(boolean[] a, int mode, int[] replacement);
  public static native Object fromNativeArray(int kind, int count);
  public static native boolean fromNativeArrayOfNullDataIsNull();
  public static native int[] copyInts(int[] a);
  public static native short[] copyShorts(short[] a);
  public static native float[] copyFloats(float[] a);
  public static native long[] copyLongs(long[] a);
  public static native int[] truncatedLongs(long[] a);
  public static native long[] widenInts(int[] values);
  public static native boolean emptyCopiesAreEmptyArrays();

  // exceptions
  public static native void throwIllegalArgument(String message, boolean withPending);
  public static native void throwIllegalAccess(String message, boolean withPending);
  public static native void throwIllegalAccessOnCurrentThread(String message);

  // environment and threads
  public static native boolean envOfJavaThreadIsCallers();
  public static native boolean runOnNativeThread(Runnable r, int times);

  // toolkit errors
  public static native void postReadErrorOnNativeThread(String text);
  public static native void postDebugErrorOnNativeThread(String text);
  public static native void postReadError(String text);
  public static native void postGLError(String text);
  public static native void postMemoryError(String text);
  public static native void postPlainError(String text);
  public static native void postDebugError(String text);
  public static native boolean debugAndPlainErrorsUseTheToolkitHandler();

  // start-up
  public static native String typeNameFromName(String name);
  public static native String sfTimeTypeName();
  public static native boolean imageLuxInitialized();
  public static native int nativeDebugFlag();
  public static native String runInitialize(Object o);

  // object identity
  public static native String deriveJavaSimpleName(String typeName);
  public static native long javaClassSearchCount();
  public static native long typedProbeAddress(String typeName);
  public static native Object makeJavaObj(String javaClassName, String toolkitTypeName);
  public static native long newProbeNode();
  public static native int probeNodesAlive();
  public static native Object soBaseJava(long address);
  public static native Object managedObject(String className, long address);
  public static native Object newInstanceOf(String className);
  public static native long dynamicInstance(String typeName);
  public static native Object enumOf(String enumClassName, int value);
  public static native int enumValueOf(Object constant);
  public static native int lastEnumValueResult();

  // timer queue and real-time clock
  public static native void startProbeTimer();
  public static native void stopProbeTimer();
  public static native int probeTimerFires();
  public static native boolean realTimeSensorEnabled();
  public static native double realTimeFieldSeconds();
}
