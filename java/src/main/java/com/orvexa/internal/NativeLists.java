package com.orvexa.internal;

import com.orvexa.orvex.Orvex;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/**
 * Toolkit lists (of paths, nodes, fields, picked points) as Java lists: the
 * native side hands over the element addresses in list order, and each
 * becomes the one Java object that stands for it.
 */
public final class NativeLists {
  private NativeLists() {}

  /**
   * The objects at {@code addresses} as wrappers of {@code cls} (the object
   * manager's, of the most specific class), in order; null for null.
   */
  public static <T extends Orvex> List<T> managed(Class<T> cls, long[] addresses) {
    if (addresses == null) return null;
    List<T> objects = new ArrayList<>(addresses.length);
    for (long address : addresses) objects.add(ObjectManager.getManagedObject(cls, address));
    return Collections.unmodifiableList(objects);
  }

  /**
   * The objects at {@code addresses}, which live inside {@code lender} (the
   * picked points of an action): their wrappers keep it alive and fail once
   * it is disposed. Null for null.
   */
  public static <T extends Orvex> List<T> lent(Class<T> cls, long[] addresses, Orvex lender) {
    return lent(cls, addresses, lender, false);
  }

  /** As {@link #lent}, for objects that live inside the lender until its next renewal (its next apply). */
  public static <T extends Orvex> List<T> lentUntilRenewed(Class<T> cls, long[] addresses, Orvex lender) {
    return lent(cls, addresses, lender, true);
  }

  private static <T extends Orvex> List<T> lent(Class<T> cls, long[] addresses, Orvex lender, boolean untilRenewed) {
    if (addresses == null) return null;
    List<T> objects = new ArrayList<>(addresses.length);
    for (long address : addresses) {
      objects.add(untilRenewed ? ObjectManager.getLentObjectUntilRenewed(cls, address, lender)
                               : ObjectManager.getLentObject(cls, address, lender));
    }
    return Collections.unmodifiableList(objects);
  }
}
