package com.orvexa.orvex.misc.callbacks;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.SbVec2s;
import com.orvexa.orvex.SbViewportRegion;
import com.orvexa.orvex.actions.SoHandleEventAction;
import com.orvexa.orvex.events.SoButtonEvent;
import com.orvexa.orvex.events.SoEvent;
import com.orvexa.orvex.events.SoKeyboardEvent;
import com.orvexa.orvex.events.SoMouseButtonEvent;
import com.orvexa.orvex.nodes.SoEventCallback;
import com.orvexa.orvex.nodes.SoSeparator;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

/** Event callbacks of an SoEventCallback node, called for the events of their type only. */
class EventCallbacksTest {
  @BeforeAll
  static void load() {
    CallbackProbe.init();
  }

  private static boolean handle(SoSeparator root, SoEvent event) {
    try (SoHandleEventAction action = new SoHandleEventAction(new SbViewportRegion((short) 100, (short) 100))) {
      event.setPosition(new SbVec2s((short) 10, (short) 20));
      action.setEvent(event);
      action.apply(root);
      return action.isHandled();
    }
  }

  private static SoMouseButtonEvent click() {
    SoMouseButtonEvent event = new SoMouseButtonEvent();
    event.setButton(SoMouseButtonEvent.Buttons.BUTTON1);
    event.setState(SoButtonEvent.States.DOWN);
    return event;
  }

  @Test
  void aCallbackSeesOnlyEventsOfItsTypeAndMayHandleThem() {
    SoSeparator root = new SoSeparator();
    SoEventCallback node = new SoEventCallback();
    root.addChild(node);
    List<String> seen = new ArrayList<>();
    SoEventCallbackCB mouse = new SoEventCallbackCB((n, data) -> {
      assertSame(node, n);
      seen.add(data + " " + n.getEvent().getClass().getSimpleName());
      n.setHandled();
    });
    node.addEventCallback(SoMouseButtonEvent.getClassTypeId(), mouse, "mouse");
    assertTrue(handle(root, click()));
    assertEquals(false, handle(root, new SoKeyboardEvent()), "no callback for keys");
    node.removeEventCallback(SoMouseButtonEvent.getClassTypeId(), mouse);
    assertEquals(false, handle(root, click()), "removed");
    assertEquals(List.of("mouse SoMouseButtonEvent"), seen);
    assertEquals(0, NCallback.holdCount(mouse.nativeAddress()));
  }

  @Test
  void anExceptionOfAnEventCallbackReachesTheCallerOfApply() {
    SoSeparator root = new SoSeparator();
    SoEventCallback node = new SoEventCallback();
    root.addChild(node);
    node.addEventCallback("SoEvent", new SoEventCallbackCB((n, data) -> {
      throw new IllegalArgumentException("event refused");
    }), null);
    IllegalArgumentException e = assertThrows(IllegalArgumentException.class, () -> handle(root, click()));
    assertEquals("event refused", e.getMessage());
  }

  @Test
  void unknownEventTypesAreRefused() {
    SoEventCallback node = new SoEventCallback();
    SoEventCallbackCB cb = new SoEventCallbackCB((n, data) -> {});
    IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
        () -> node.addEventCallback("NoSuchEventType", cb, null));
    assertTrue(e.getMessage().contains("NoSuchEventType"), e.getMessage());
    assertThrows(NullPointerException.class, () -> node.addEventCallback(null, cb, null));
    assertThrows(NullPointerException.class, () -> node.removeEventCallback("SoEvent", null));
    assertEquals(0, NCallback.holdCount(cb.nativeAddress()));
  }
}
