@echo off
rem Runs in this folder behind each save of the project, once you have changed it and said so. As it stands it does
rem nothing. A save doesn't wait for it: where one takes long, the next save may start another beside it.
rem To publish the page, write a line like this one, without the "rem":
rem
rem xcopy /y index.html \\server\site\
