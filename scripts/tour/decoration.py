"""A plain frame around the windows, as a desktop of today has, for the screen of the pictures."""

from pathlib import Path

COLOURS = {"light": {"title": "#e7ebf2", "words": "#1f2937", "line": "#c3cad6"},
           "dark": {"title": "#2c313b", "words": "#e5e7eb", "line": "#4a5261"}}

THEME = """border.width: 1
padding.width: 6
padding.height: 4
window.handle.width: 0
window.client.padding.width: 0
window.client.padding.height: 0
window.*.border.color: {line}
window.*.title.separator.color: {line}
window.*.title.bg: flat solid
window.*.title.bg.color: {title}
window.*.label.bg: parentrelative
window.*.label.text.color: {words}
window.label.text.justify: center
window.*.button.*.bg: parentrelative
window.*.button.*.image.color: {words}
"""

# Windows go to the upper left corner, so that the pointer, which rests in the middle of a large
# screen, points at none of them.
SETTINGS = """<openbox_config xmlns="http://openbox.org/3.4/rc">
<focus><focusNew>yes</focusNew></focus>
<placement><policy>Smart</policy><center>no</center></placement>
<theme><name>{theme}</name><titleLayout>LIMC</titleLayout>
<font place="ActiveWindow"><name>DejaVu Sans</name><size>10</size><weight>Bold</weight></font>
<font place="InactiveWindow"><name>DejaVu Sans</name><size>10</size><weight>Bold</weight></font>
</theme></openbox_config>
"""


def write(folder: Path, theme: str):
    """Writes the window manager's settings below `folder`, and returns their file."""
    sheet = folder / "openbox-3" / "themerc"
    sheet.parent.mkdir(parents=True, exist_ok=True)
    sheet.write_text(THEME.format(**COLOURS[theme]), encoding="utf-8")
    settings = folder / "rc.xml"
    settings.write_text(SETTINGS.format(theme=folder), encoding="utf-8")
    return settings
