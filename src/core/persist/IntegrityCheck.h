#pragma once

class clsProject;

/// True when nothing that is referred to is missing; what is gets a line in the log.
bool IntegrityCheck(const clsProject& project);
