import java.awt.image.BufferedImage;

  /**
   * The picture of the last {@link #render} as an image, top row first (the
   * buffer holds it bottom row first): {@code TYPE_INT_ARGB} when the
   * components carry transparency, {@code TYPE_INT_RGB} otherwise, luminance
   * spread over red, green and blue. Null before a successful render.
   *
   * @throws IllegalStateException when the viewport region's window size or
   *     the components were changed after the render, so the buffer's layout
   *     is no longer known
   */
  public BufferedImage toBufferedImage() {
    byte[] pixels = getBuffer();
    if (pixels.length == 0) return null;
    short[] size = getViewportRegion().getWindowSize().array;
    int width = size[0];
    int height = size[1];
    Components components = getComponents();
    int channels = channelsOf(components);
    if ((long) width * height * channels != pixels.length) {
      throw new IllegalStateException("the renderer's window size or components changed since its last render");
    }
    boolean alpha = channels == 2 || channels == 4;
    BufferedImage image = new BufferedImage(width, height, alpha ? BufferedImage.TYPE_INT_ARGB : BufferedImage.TYPE_INT_RGB);
    int[] row = new int[width];
    for (int y = 0; y < height; y++) {
      int offset = (height - 1 - y) * width * channels;
      for (int x = 0; x < width; x++, offset += channels) {
        int r = pixels[offset] & 0xff;
        int g = channels >= 3 ? pixels[offset + 1] & 0xff : r;
        int b = channels >= 3 ? pixels[offset + 2] & 0xff : r;
        int a = channels == 4 ? pixels[offset + 3] & 0xff : channels == 2 ? pixels[offset + 1] & 0xff : 0xff;
        row[x] = a << 24 | r << 16 | g << 8 | b;
      }
      image.setRGB(0, y, width, 1, row, 0, width);
    }
    return image;
  }

  /** Bytes per pixel of the buffer for those components. */
  private static int channelsOf(Components components) {
    switch (components) {
      case LUMINANCE: return 1;
      case LUMINANCETRANSPARENCY: return 2;
      case RGB: return 3;
      default: return 4;
    }
  }
