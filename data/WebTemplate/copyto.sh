#!/bin/sh
# Runs in this folder behind each save of the project, once you have changed it and said so. As it stands it does
# nothing. A save doesn't wait for it: where one takes long, the next save may start another beside it.
# To publish the page, write a line like one of these, without the "#":
#
# cp index.html style.css logo.png /path/to/your/site/
# scp index.html style.css logo.png you@example.org:public_html/
