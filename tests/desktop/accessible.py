"""The program's windows as assistive tools see them, through AT-SPI."""

import pyatspi

from desktop import wait_until


def everything(accessible, depth=0):
    if accessible is None or depth > 14:
        return
    yield accessible
    for index in range(min(accessible.childCount, 400)):
        try:
            yield from everything(accessible.getChildAtIndex(index), depth + 1)
        except Exception:  # the widgets may change while they are walked
            return


def showing(*roles):
    """What is to be seen of the program, of those roles or of any; a theme's toolkit may register the program once more."""
    programs = [each for each in pyatspi.Registry.getDesktop(0) if each and each.name.lower() in ("zanthe vell", "zanthe-vell")]
    for element in (element for program in programs for element in everything(program)):
        try:
            if (not roles or element.getRole() in roles) and element.getState().contains(pyatspi.STATE_SHOWING):
                yield element
        except Exception:
            continue


def find(name, *roles):
    """The showing element with that name, or nothing."""
    return next((element for element in showing(*roles) if element.name == name), None)


def found(name, *roles):
    return wait_until(lambda: find(name, *roles), 5, f"“{name}” in the window")


def act(element):
    element.queryAction().doAction(0)


def middle(element):
    box = element.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return box.x + box.width // 2, box.y + box.height // 2
