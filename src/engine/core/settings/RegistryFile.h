#pragma once
// The settings store on disk, in the registry export format:
//
//   Windows Registry Editor Version 5.00
//
//   [HKEY_CURRENT_USER\Software\Brindlex\TWK\HealthCheck]
//   "ShowHints"="1"
//   @="default value"
//   "DestinationPort"=dword:00000202
//   "Lines"=hex(7):61,00,00,00,00,00
//
// Files are written as UTF-8 with LF line ends. Reading also takes UTF-16LE files with
// a byte order mark (as exports are saved), "REGEDIT4" files, CR LF line ends and
// hex data continued over lines ending in "\". A damaged line is skipped, never fatal.

#include "core/settings/RegistryTree.h"

#include <QByteArray>

namespace twk {

/// The whole store as file content.
QByteArray writeRegistryFile(const RegistryTree& tree);

/// Builds a store from file content; what cannot be understood is left out.
RegistryTree readRegistryFile(const QByteArray& content);

} // namespace twk
