package com.orvexa.orvex.misc.callbacks;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertSame;

import com.orvexa.orvex.SbVec2s;
import com.orvexa.orvex.SbViewportRegion;
import com.orvexa.orvex.SoDB;
import com.orvexa.orvex.SoInput;
import com.orvexa.orvex.actions.SoGetBoundingBoxAction;
import com.orvexa.orvex.actions.SoHandleEventAction;
import com.orvexa.orvex.events.SoButtonEvent;
import com.orvexa.orvex.events.SoLocation2Event;
import com.orvexa.orvex.events.SoMouseButtonEvent;
import com.orvexa.orvex.nodes.SoCube;
import com.orvexa.orvex.nodes.SoOrthographicCamera;
import com.orvexa.orvex.nodes.SoSeparator;
import com.orvexa.orvex.nodes.SoWWWAnchor;
import com.orvexa.orvex.nodes.SoWWWInline;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.Test;

/** The process-wide functions of inline and anchor nodes, from Java. */
class WWWCallbacksTest {
  private static final SbViewportRegion VIEWPORT = new SbViewportRegion((short) 100, (short) 100);

  @AfterEach
  void removeTheFunctions() {
    SoWWWInline.setFetchURLCallBack(null, null);
    SoWWWAnchor.setFetchURLCallBack(null, null);
    SoWWWAnchor.setHighlightURLCallBack(null, null);
  }

  @Test
  void anInlineReadFromAFileAsksJavaForItsSceneAndShowsWhatJavaGives() {
    List<String> urls = new ArrayList<>();
    Object data = new Object();
    SoWWWInline.setFetchURLCallBack(new SoWWWInlineFetchURLCB((url, node, userData) -> {
      assertSame(data, userData);
      urls.add(url);
      SoCube cube = new SoCube();
      cube.width.setValue(6f);
      node.setChildData(cube);
    }), data);
    SoInput in = new SoInput();
    in.setBuffer("#Orvex V1.0 ascii\nSeparator { WWWInline { name \"http://example.org/part.ovx\" } }");
    SoSeparator scene = SoDB.readAll(in);
    assertNotNull(scene);
    assertEquals(List.of("http://example.org/part.ovx"), urls);
    SoGetBoundingBoxAction bbox = new SoGetBoundingBoxAction(VIEWPORT);
    bbox.apply(scene);
    assertArrayEquals(new float[] {-3, -1, -1, 3, 1, 1}, bbox.getBoundingBox().array, 1e-5f);

    // Replaced by null: the next inline asks no one and stays empty.
    SoWWWInline.setFetchURLCallBack(null, null);
    SoInput again = new SoInput();
    again.setBuffer("#Orvex V1.0 ascii\nWWWInline { name \"other.ovx\" }");
    SoWWWInline lone = (SoWWWInline) SoDB.readAll(again).getChild(0);
    assertEquals(1, urls.size());
    assertEquals(null, lone.getChildData());
  }

  @Test
  void anAnchorReportsItsURLOnClickAndTheCursorGoingOnAndOff() {
    SoSeparator root = new SoSeparator();
    SoOrthographicCamera camera = new SoOrthographicCamera();
    camera.position.setValue(0f, 0f, 5f);
    camera.height.setValue(4f);
    SoWWWAnchor anchor = new SoWWWAnchor();
    anchor.name.setValue("http://example.org/");
    anchor.addChild(new SoCube());
    root.addChild(camera);
    root.addChild(anchor);
    List<String> fetched = new ArrayList<>();
    List<String> highlighted = new ArrayList<>();
    SoWWWAnchor.setFetchURLCallBack(new SoWWWAnchorCB((url, node, userData) -> {
      assertSame(anchor, node);
      fetched.add(url);
    }), null);
    SoWWWAnchor.setHighlightURLCallBack(new SoWWWAnchorCB((url, node, userData) -> highlighted.add(url)), null);

    SoHandleEventAction handler = new SoHandleEventAction(VIEWPORT);
    SoLocation2Event move = new SoLocation2Event();
    move.setPosition(new SbVec2s((short) 50, (short) 50));  // the cube covers the middle half
    handler.setEvent(move);
    handler.apply(root);
    SoMouseButtonEvent click = new SoMouseButtonEvent();
    click.setButton(SoMouseButtonEvent.Buttons.BUTTON1);
    click.setState(SoButtonEvent.States.DOWN);
    click.setPosition(new SbVec2s((short) 50, (short) 50));
    handler.setEvent(click);
    handler.apply(root);
    move.setPosition(new SbVec2s((short) 2, (short) 2));  // off the cube
    handler.setEvent(move);
    handler.apply(root);

    assertEquals(List.of("http://example.org/"), fetched);
    assertEquals(List.of("http://example.org/", ""), highlighted);
  }
}
