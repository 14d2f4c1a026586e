package com.orvexa.orvex.misc.callbacks;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.SbVec2s;
import com.orvexa.orvex.SbViewportRegion;
import com.orvexa.orvex.SoPath;
import com.orvexa.orvex.actions.SoHandleEventAction;
import com.orvexa.orvex.events.SoButtonEvent;
import com.orvexa.orvex.events.SoMouseButtonEvent;
import com.orvexa.orvex.nodes.SoCube;
import com.orvexa.orvex.nodes.SoOrthographicCamera;
import com.orvexa.orvex.nodes.SoSelection;
import com.orvexa.orvex.nodes.SoSphere;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;

/**
 * Callbacks of a selection node: selection, deselection and change
 * callbacks of programmatic changes, and the pick filter of a pick made by
 * a mouse click in the middle of a view onto a cube.
 */
class SelectionCallbacksTest {
  private SoSelection selection;
  private SoCube cube;
  private SoSphere sphere;

  @BeforeEach
  void scene() {
    CallbackProbe.init();
    selection = new SoSelection();
    SoOrthographicCamera camera = new SoOrthographicCamera();
    camera.position.setValue(0f, 0f, 5f);
    camera.nearDistance.setValue(1f);
    camera.farDistance.setValue(10f);
    camera.height.setValue(4f);
    selection.addChild(camera);
    cube = new SoCube();
    selection.addChild(cube);
    sphere = new SoSphere();
    sphere.radius.setValue(0.1f);
    selection.addChild(sphere);
  }

  /** A click of the first button in the middle of a 100 x 100 view. */
  private void clickInTheMiddle() {
    SbViewportRegion viewport = new SbViewportRegion((short) 100, (short) 100);
    try (SoHandleEventAction action = new SoHandleEventAction(viewport)) {
      for (SoButtonEvent.States state : new SoButtonEvent.States[] {SoButtonEvent.States.DOWN, SoButtonEvent.States.UP}) {
        SoMouseButtonEvent event = new SoMouseButtonEvent();
        event.setButton(SoMouseButtonEvent.Buttons.BUTTON1);
        event.setState(state);
        event.setPosition(new SbVec2s((short) 50, (short) 50));
        action.setEvent(event);
        action.apply(selection);
      }
    }
  }

  @Test
  void selectionDeselectionAndChangeCallbacksFollowTheList() {
    List<String> events = new ArrayList<>();
    selection.addSelectionCallback(new SoSelectionPathCB((path, data) ->
        events.add(data + " " + path.getTail().getClass().getSimpleName())), "selected");
    selection.addDeselectionCallback(new SoSelectionPathCB((path, data) ->
        events.add(data + " " + path.getTail().getClass().getSimpleName())), "deselected");
    SoSelectionClassCB change = new SoSelectionClassCB((node, data) -> {
      assertSame(selection, node);
      events.add("changed " + node.getNumSelected());
    });
    selection.addChangeCallback(change, null);
    selection.select(cube);
    selection.select(sphere);
    selection.deselect(cube);
    selection.removeChangeCallback(change);
    selection.deselectAll();
    assertEquals(List.of("selected SoCube", "changed 1", "selected SoSphere", "changed 2", "deselected SoCube",
        "changed 1", "deselected SoSphere"), events);
  }

  @Test
  void aClickSelectsThePickedShapeBetweenStartAndFinish() {
    List<String> events = new ArrayList<>();
    selection.addStartCallback(new SoSelectionClassCB((node, data) -> events.add("start")), null);
    selection.addFinishCallback(new SoSelectionClassCB((node, data) -> events.add("finish")), null);
    selection.addSelectionCallback(new SoSelectionPathCB((path, data) ->
        events.add("selected " + path.getTail().getClass().getSimpleName())), null);
    clickInTheMiddle();
    assertEquals(List.of("start", "selected SoCube", "finish"), events);
  }

  @Test
  void thePickFilterReplacesOrRefusesThePick() {
    List<String> picked = new ArrayList<>();
    SoPath toSphere = new SoPath(selection);
    toSphere.append(sphere);
    selection.setPickFilterCallback(new SoSelectionPickCB((pick, data) -> {
      picked.add(pick.getPath().getTail().getClass().getSimpleName());
      return toSphere;
    }), null);
    clickInTheMiddle();
    assertTrue(picked.size() >= 1, "the filter saw the pick");
    assertEquals("SoCube", picked.get(0));
    assertEquals(1, selection.getNumSelected());
    assertSame(sphere, selection.getPath(0).getTail(), "the filter's path was selected");

    selection.deselectAll();
    selection.setPickFilterCallback(new SoSelectionPickCB((pick, data) -> null), null);
    clickInTheMiddle();
    assertEquals(0, selection.getNumSelected(), "a null answer refuses the pick");
  }

  @Test
  void anExceptionOfTheFilterReachesTheCallerAndSelectsNothing() {
    selection.setPickFilterCallback(new SoSelectionPickCB((pick, data) -> {
      throw new IllegalStateException("filter refused");
    }), null);
    IllegalStateException e = assertThrows(IllegalStateException.class, this::clickInTheMiddle);
    assertEquals("filter refused", e.getMessage());
    assertEquals(0, selection.getNumSelected());
  }

  @Test
  void callbacksAreRefusedWhenNull() {
    assertThrows(NullPointerException.class, () -> selection.addSelectionCallback(null, null));
    assertThrows(NullPointerException.class, () -> selection.removeChangeCallback(null));
    selection.setPickFilterCallback(null, null);
  }
}
