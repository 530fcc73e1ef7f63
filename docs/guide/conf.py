"""How Sphinx makes the guide; `./zv docs` runs it once a language. Everything it needs comes with it: the pages open
without a network."""

import os
import re

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../..")
with open(os.path.join(ROOT, "CMakeLists.txt"), encoding="utf-8") as listed:
    release = re.search(r"project\(zanthe-vell VERSION (\S+)", listed.read())[1]

project = "Zanthe Vell"
author = copyright = "The Zanthe Vell developers"  # noqa: A001, Sphinx' own name
language = os.environ.get("ZV_GUIDE_LANGUAGE", "en")
html_title = f"Zanthe Vell {release}"

extensions = ["myst_parser"]
myst_enable_extensions = ["colon_fence", "deflist"]
myst_heading_anchors = 3
suppress_warnings = ["myst.header"]
html_theme = "furo"
html_theme_options = {"light_css_variables": {"color-brand-primary": "#2f7d32", "color-brand-content": "#2f7d32"},
                      "dark_css_variables": {"color-brand-primary": "#8fc64a", "color-brand-content": "#8fc64a"}}
html_static_path = ["look"]
html_css_files = ["guide.css"]
html_favicon = os.path.join(ROOT, "packaging/linux/icons/hicolor/scalable/apps/org.zanthevell.ZantheVell.svg")
html_show_sourcelink = False
html_copy_source = False
pygments_style = "friendly"
pygments_dark_style = "native"
