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


def find(name, role=None):
    """The showing element with that name, or nothing."""
    for program in pyatspi.Registry.getDesktop(0):
        if not program or program.name.lower() not in ("zanthe vell", "zanthe-vell"):
            continue
        for element in everything(program):
            try:
                states = element.getState()
                if element.name == name and (role is None or element.getRole() == role) and states.contains(pyatspi.STATE_SHOWING):
                    return element
            except Exception:
                continue
    return None


def found(name, role=None):
    return wait_until(lambda: find(name, role), 5, f"“{name}” in the window")


def act(element):
    element.queryAction().doAction(0)


def middle(element):
    box = element.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return box.x + box.width // 2, box.y + box.height // 2
