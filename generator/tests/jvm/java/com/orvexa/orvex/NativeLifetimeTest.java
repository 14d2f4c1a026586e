package com.orvexa.orvex;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.actions.SoSearchAction;
import com.orvexa.orvex.fields.SoSFFloat;
import com.orvexa.orvex.nodes.SoCube;
import com.orvexa.orvex.nodes.SoSeparator;
import com.orvexa.orvex.nodes.SoSphere;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import org.junit.jupiter.api.Test;

/**
 * Native objects made from Java go when their wrappers go. Run with a small
 * Java heap (-Xmx32m), so that wrappers are collected often and a wrapper
 * that kept its native object, or an identity map that kept its wrappers,
 * would show as growth of the process's resident memory or as a Java
 * OutOfMemoryError.
 */
class NativeLifetimeTest {
  private static final long PAGE_BYTES = 4096;

  /** The process's resident memory, from the kernel's count of resident pages. */
  private static long residentBytes() throws IOException {
    String[] fields = Files.readString(Path.of("/proc/self/statm")).trim().split("\\s+");
    return Long.parseLong(fields[1]) * PAGE_BYTES;
  }

  /** Lets the collector and the wrappers' cleaners catch up. */
  private static void settle() throws InterruptedException {
    for (int i = 0; i < 5; i++) {
      System.gc();
      Thread.sleep(50);
    }
  }

  private static void makeAndDrop(int count) {
    for (int i = 0; i < count; i++) {
      SoCube cube = new SoCube();
      cube.width.setValue(i);
    }
  }

  @Test
  void aMillionNodesMadeAndDroppedLeaveNativeMemoryFlat() throws Exception {
    // Warm up: the allocator's and the collector's own working sets.
    makeAndDrop(200_000);
    settle();
    long before = residentBytes();
    makeAndDrop(1_000_000);
    settle();
    long grown = residentBytes() - before;
    // A node with its fields takes well over 100 bytes natively: a million
    // kept would add far more than this bound.
    System.out.println("resident memory grew by " + grown / 1024 + " KiB over 1,000,000 nodes");
    assertTrue(grown < 40L << 20, "resident memory grew by " + grown + " bytes");
  }

  @Test
  void aFieldKeptAfterItsNodesWrapperIsDroppedStaysValidThroughCollections() throws Exception {
    SoSFFloat[] radii = new SoSFFloat[100];
    for (int i = 0; i < radii.length; i++) radii[i] = radiusOfADroppedSphere(i);
    makeAndDrop(300_000);
    settle();
    for (int i = 0; i < radii.length; i++) {
      assertEquals(i, radii[i].getValue());
      radii[i].setValue(-i);
      assertEquals(-i, radii[i].getValue());
    }
  }

  private static SoSFFloat radiusOfADroppedSphere(int value) {
    SoSphere ball = new SoSphere();
    ball.radius.setValue(value);
    return ball.radius;
  }

  @Test
  void nodesFoundAgainAfterTheirWrappersWereCollectedAreTheSameNativeObjects() throws Exception {
    SoSeparator root = new SoSeparator();
    for (int i = 0; i < 1000; i++) {
      SoCube cube = new SoCube();
      cube.width.setValue(i);
      root.addChild(cube);
    }
    makeAndDrop(300_000);
    settle();
    SoSearchAction search = new SoSearchAction();
    search.setType(SoCube.class);
    search.setInterest(SoSearchAction.Interest.ALL);
    search.apply(root);
    List<SoPath> paths = search.getPaths();
    assertEquals(1000, paths.size());
    for (int i = 0; i < paths.size(); i++) {
      SoCube cube = (SoCube) paths.get(i).getTail();
      assertEquals(i, cube.width.getValue());
      assertSame(cube, root.getChild(i));
    }
  }
}
