/**
 * Sensors: objects that run a Java task when the toolkit fires them.
 *
 * <p>Data sensors ({@link com.orvexa.orvex.sensors.SoFieldSensor},
 * {@link com.orvexa.orvex.sensors.SoNodeSensor},
 * {@link com.orvexa.orvex.sensors.SoPathSensor}) are scheduled on the
 * database's delay queue each time what they watch changes, and fire once
 * for all the changes made before the queue is processed, in priority order
 * (lower values first); priority 0 fires at once, during the change, on the
 * changing thread. One-shot and idle sensors wait on the delay queue too;
 * alarm, timer and file sensors on the timer queue.
 *
 * <h2>Who processes the queues</h2>
 * In a Java application nothing has to pump: the
 * {@link com.orvexa.orvex.RealTimeManager} daemon thread, started with the
 * binding, makes one pass every {@value com.orvexa.orvex.RealTimeManager#DEFAULT_PERIOD_MILLIS} ms:
 * first the timer queue (due alarms and timers, and the "realTime" global
 * field), then the whole delay queue as an idle moment (data, one-shot and
 * idle sensors). Sensor tasks therefore run on that thread, one after the
 * other; a task must not block it. A program that wants to decide itself
 * when sensors fire stops that thread ({@code RealTimeManager.stop()}) and
 * calls the processing methods of
 * {@link com.orvexa.orvex.sensors.SoSensorManager} (the database's manager is
 * {@code SoDB.getSensorManager()}).
 *
 * <h2>Lifetime</h2>
 * A Java sensor owns its toolkit sensor: it fires only while the program
 * keeps a reference to it. Disposing it (or its collection) deletes the
 * toolkit sensor, which unschedules and detaches it; it never fires after.
 * The toolkit does not guard the deletion of a sensor against another thread
 * firing that very sensor at the same moment: a sensor that may be firing is
 * disposed from its own task or from the thread that processes its queue
 * (for the database's queues, with the RealTimeManager stopped, or from a
 * task run by it).
 */
package com.orvexa.orvex.sensors;
