  /**
   * The container that owns this field, kept reachable while this wrapper
   * is: a field lives inside its container and dies with it.
   */
  Object owner;
