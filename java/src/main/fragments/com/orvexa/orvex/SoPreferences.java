  /**
   * The value of the preference {@code name}: the one the program set, else
   * the environment variable of that name; null when neither exists.
   */
  public static String getValue(String name) {
    if (name == null) throw com.orvexa.internal.NativeCalls.nullArgument("name");
    return getValueNativ(name);
  }

  /**
   * Sets the preference {@code name} to {@code value} (null removes it). The
   * process environment gets the same variable, so that code reading the
   * environment sees the setting too.
   *
   * @throws IllegalArgumentException when the name is empty or holds '=',
   *     which no environment variable can be called
   */
  public static void setValue(String name, String value) {
    if (name == null) throw com.orvexa.internal.NativeCalls.nullArgument("name");
    if (name.isEmpty() || name.indexOf('=') >= 0) {
      throw new IllegalArgumentException("name \"" + name + "\" cannot name an environment variable");
    }
    setValueNativ(name, value);
  }

  /** Sets a boolean preference, as TRUE or FALSE. */
  public static void setBool(String name, boolean value) {
    setValue(name, value ? "TRUE" : "FALSE");
  }

  /** Sets an integer preference, in decimal. */
  public static void setInt(String name, int value) {
    setValue(name, Integer.toString(value));
  }

  /** Sets a float preference, with every digit it needs to read back the same. */
  public static void setFloat(String name, float value) {
    setValue(name, Float.toString(value));
  }

  /** Sets a double preference, with every digit it needs to read back the same. */
  public static void setDouble(String name, double value) {
    setValue(name, Double.toString(value));
  }

  /** Sets a text preference; null removes it. */
  public static void setString(String name, String value) {
    setValue(name, value);
  }

  static native String getValueNativ(String name);

  static native void setValueNativ(String name, String value);
