/* Preloaded into sanitized test programs whose libraries unload plug-ins of
 * their own (the OpenGL driver that EGL loads and unloads with each
 * display). LeakSanitizer only scans the globals of libraries still mapped
 * at exit: what an unloaded driver keeps for the life of the process then
 * looks leaked, and its allocation stacks point into nothing. Keeping every
 * library mapped leaves those roots visible, so leak checking stays on. */
int dlclose(void *handle) {
  (void)handle;
  return 0;
}
