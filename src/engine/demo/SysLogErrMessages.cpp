#include "demo/SysLogErrMessages.h"

namespace twk::demo {

namespace {

// clang-format off
// Columns: key, event type, severity, locus, class, module, weight, message lines.
// Severity 0 informational .. 6 aborted; locus and class as the server numbers them.
constexpr SysLogErrMessage kEnglish[] = {
    // Directory services and the links between servers.
    {"ds.established", 7, 0, 19, 19, "DS", 30, {"Established communication with server {peer}."}},
    {"ds.unable", 8, 1, 19, 2, "DS", 25,
     {"Unable to communicate with server {peer}.",
      "It does not appear to be up."}},
    {"ds.db-open", 11, 0, 19, 19, "DS", 12, {"Directory Services: Local database is open."}},
    {"ds.db-closed", 12, 1, 19, 19, "DS", 8,
     {"Directory Services: Local database has been closed."}},
    {"ds.synthetic", 30, 1, 19, 2, "DS", 6,
     {"Synthetic time is being issued on partition \"{partition}\"."}},
    {"ds.sync-done", 24, 0, 19, 19, "DS", 30,
     {"Replica synchronization of partition \"{partition}\" completed."}},
    {"ds.replica-error", 24, 3, 19, 4, "DS", 10,
     {"Directory Services: replica of partition \"{partition}\" could not be synchronized.",
      "Error -625 while sending updates to server {peer}.",
      "The synchronization will be retried later."}},
    {"ds.schema", 24, 0, 19, 19, "DS", 8,
     {"Directory Services: schema synchronization with server {peer} completed."}},
    {"ds.key", 24, 1, 19, 8, "DS", 4, {"Public key of server {peer} could not be read."}},
    {"ds.changes", 24, 0, 19, 19, "DS", 10,
     {"Changes to partition \"{partition}\" were sent to {n} replicas."}},
    {"ds.object", 24, 1, 19, 8, "DS", 6, {"Object {user} was not found in the local replicas."}},
    // Time.
    {"timesync.established", 9, 0, 17, 19, "TIMESYNC", 25,
     {"Time synchronization has been established."}},
    {"timesync.lost", 10, 1, 17, 2, "TIMESYNC", 18,
     {"Time synchronization has been lost after {n} successful polling loops."}},
    {"time.changed", 29, 1, 17, 19, "SERVER", 6,
     {"System time changed by {n} seconds on request of the reference time server."}},
    // The server itself and its service addresses.
    {"ncp.registered", 13, 0, 5, 19, "SERVER", 10,
     {"Server {server} registered as an NCP Service Address on {ip}."}},
    {"ncp.deregistered", 14, 0, 5, 19, "SERVER", 7,
     {"Server {server} deregistered as an NCP Service Address on {ip}."}},
    {"bindery.open", 27, 0, 8, 19, "SERVER", 8, {"Bindery open requested by the SERVER."}},
    {"bindery.close", 28, 0, 8, 19, "SERVER", 6, {"Bindery close requested by the SERVER."}},
    {"server.down", 24, 0, 17, 19, "SERVER", 5,
     {"Server {server} was brought down by the console operator."}},
    {"login.disabled", 18, 1, 17, 19, "SERVER", 6,
     {"Login is now disabled by the console operator."}},
    {"login.enabled", 24, 0, 17, 19, "SERVER", 6, {"Login is now enabled."}},
    // Remote console and intruders.
    {"rc.granted", 15, 0, 9, 17, "REMOTE", 16,
     {"Remote console connection granted for {address}."}},
    {"rc.cleared", 16, 0, 9, 17, "REMOTE", 14,
     {"Remote console connection cleared for {address}."}},
    {"rc.refused", 17, 1, 9, 3, "REMOTE", 8,
     {"Remote console connection refused for {address}.",
      "The password supplied was not valid."}},
    {"intruder.lockout", 19, 1, 9, 17, "SERVER", 8,
     {"Intruder lock-out on account {user} [{address}]."}},
    {"intruder.detected", 19, 1, 9, 3, "DS", 5,
     {"Intruder detection: {n} incorrect login attempts for account {user}",
      "from station {address}. The account has been locked."}},
    {"conn.cleared", 24, 0, 9, 19, "SERVER", 12,
     {"Connection {n} for user {user} was cleared by the console operator."}},
    {"station.timeout", 24, 1, 9, 13, "SERVER", 10,
     {"Station {address} did not respond to the watchdog and its connection {n} was cleared."}},
    // Volumes, disks and the file system.
    {"vol.mounted", 24, 0, 2, 19, "SERVER", 35, {"Volume {volume} was mounted."}},
    {"vol.dismounted", 24, 0, 2, 19, "SERVER", 18, {"Volume {volume} was dismounted."}},
    {"vol.almost-full", 24, 1, 2, 16, "SERVER", 18,
     {"Volume {volume} is almost out of disk space.",
      "{percent} percent of the volume's blocks are in use."}},
    {"vol.full", 24, 5, 2, 1, "SERVER", 6,
     {"Volume {volume} is out of disk space.",
      "The write request of station {n} was refused."}},
    {"device.deactivated", 20, 4, 3, 5, "SERVER", 5,
     {"Device \"{device}\" deactivated by driver due to device failure.",
      "Volume {volume} is being dismounted."}},
    {"device.unloaded", 20, 4, 3, 6, "SERVER", 3,
     {"Device \"{device}\" deactivated because its driver was unloaded."}},
    {"hotfix", 24, 2, 3, 18, "SERVER", 8,
     {"Block {n} on device \"{device}\" was redirected by Hot Fix.",
      "Data was recovered from the mirror copy."}},
    {"mirror.out", 24, 3, 3, 11, "SERVER", 4,
     {"Mirrored partitions on device \"{device}\" are out of synchronization.",
      "Remirroring of logical partition #{n} has started.",
      "The server remains available while the partitions are remirrored.",
      "Check the device for hardware errors."}},
    {"compress.error", 24, 6, 2, 20, "SERVER", 4,
     {"Compressed file {file} on volume {volume} is corrupt and cannot be decompressed."}},
    {"bad.format", 24, 6, 2, 9, "SERVER", 3,
     {"Directory entry {n} on volume {volume} has an invalid format and was skipped."}},
    {"item.exists", 24, 6, 2, 12, "SERVER", 3,
     {"File {file} cannot be created: a file with this name already exists."}},
    {"nss.pool", 24, 1, 2, 16, "NSS", 6,
     {"Pool {volume}_POOL has reached its warning threshold of {percent} percent."}},
    {"request.error", 24, 1, 2, 7, "SERVER", 4,
     {"Module {nlm} made an invalid request to the file system."}},
    // Transactions, auditing, licensing, policies.
    {"tts.shutdown", 21, 3, 7, 6, "SERVER", 5,
     {"TTS shut down because backout volume {volume} was dismounted."}},
    {"tts.enabled", 24, 0, 7, 19, "SERVER", 6,
     {"Transaction Tracking System enabled on volume {volume}."}},
    {"tts.backout", 24, 2, 7, 19, "SERVER", 4,
     {"TTS backed out {n} incomplete transactions on volume {volume}."}},
    {"audit.enabled", 23, 0, 2, 17, "SERVER", 6,
     {"Auditing has been enabled on volume {volume} by {user}."}},
    {"audit.full", 23, 1, 2, 16, "SERVER", 5,
     {"The audit file of volume {volume} is {percent} percent full.",
      "Reset the audit file with AUDITCON before it reaches its maximum size."}},
    {"nls.installed", 22, 0, 16, 19, "NLSLSP", 6,
     {"Novell Licensing Services: license certificate {hex} for {n} user connections was "
      "installed."}},
    {"nls.exceeded", 22, 1, 16, 14, "NLSLSP", 5,
     {"Novell Licensing Services: the number of licensed connections ({n}) has been exceeded.",
      "Additional users will not be able to log in."}},
    {"policy.read", 31, 1, 16, 15, "DS", 4,
     {"POLICY MANAGER: Unable to read the policy of object {user}."}},
    {"policy.update", 31, 0, 16, 19, "DS", 4,
     {"POLICY MANAGER: {n} policies were updated in the local cache."}},
    // Network, memory, kernel, power.
    {"router.config", 32, 1, 10, 15, "IPXRTR", 6,
     {"Router configuration error detected.",
      "Node {node} claims network {net} should be {net2}."}},
    {"lan.bound", 24, 0, 5, 19, "SERVER", 10,
     {"IPX protocol bound to network card {lan} with network number {net}."}},
    {"lan.timeout", 24, 1, 4, 5, "SERVER", 8,
     {"Network card {lan} in slot {slot} timed out on transmit.",
      "The adapter was reset."}},
    {"slp.agent", 24, 0, 5, 19, "SLP", 5, {"SLP: directory agent {ip} was discovered."}},
    {"nlm.loaded", 24, 0, 16, 19, "SERVER", 30, {"Module {nlm} was loaded."}},
    {"nlm.unloaded", 24, 1, 16, 19, "SERVER", 10,
     {"Module {nlm} was unloaded by the console operator."}},
    {"resource.leak", 24, 1, 15, 4, "SERVER", 4,
     {"Module {nlm} did not release {n} resource tags when it was unloaded."}},
    {"cache.low", 24, 1, 18, 16, "SERVER", 10,
     {"Cache memory is getting low.",
      "Only {low} percent of the original cache buffers remain.",
      "Add memory to the server or unload modules that are not needed."}},
    {"memory.refused", 24, 5, 1, 1, "SERVER", 6,
     {"Request for {bytes} bytes of memory by module {nlm} was refused.",
      "Short term memory allocator is out of memory."}},
    {"lock.limit", 24, 5, 11, 14, "SERVER", 3,
     {"Record lock threshold exceeded by station {n}.",
      "The lock table is full."}},
    {"locked.file", 24, 1, 11, 10, "SERVER", 4,
     {"File {file} is locked by station {n} and cannot be backed up."}},
    {"kernel.cpu", 24, 1, 12, 16, "SERVER", 5,
     {"Processor utilization has exceeded {percent} percent for {n} seconds."}},
    {"abend.recovered", 24, 3, 12, 6, "SERVER", 3,
     {"Server {server} recovered from an abnormal end in process {hex}.",
      "The process was suspended."}},
    {"protect.fault", 24, 4, 12, 21, "SERVER", 2,
     {"Module {nlm} caused a page fault in protected address space {n}.",
      "The address space was shut down and its modules were unloaded."}},
    {"ups.battery", 24, 3, 13, 5, "UPS", 2,
     {"Commercial power has failed. Server {server} is running on battery power."}},
    {"ups.restored", 24, 0, 13, 19, "UPS", 2, {"Commercial power has been restored."}},
    {"sft.synced", 24, 0, 14, 19, "SERVER", 2,
     {"SFT III mirrored server engines are now synchronized."}},
    {"thirdparty", 24, 0, 0, 0, "BKUPEXEC", 4,
     {"Backup job {n} finished: {bytes} bytes were saved to tape."}},
};

constexpr SysLogErrMessage kGerman[] = {
    {"ds.established", 7, 0, 19, 19, "DS", 30, {"Kommunikation mit Server {peer} hergestellt"}},
    {"ds.unable", 8, 1, 19, 2, "DS", 25, {"Kommunikation mit Server {peer} nicht möglich"}},
    {"ds.db-open", 11, 0, 19, 19, "DS", 12, {"Verzeichnisdienste: Lokale Datenbank ist offen."}},
    {"ds.db-closed", 12, 1, 19, 19, "DS", 8,
     {"Verzeichnisdienste: Lokale Datenbank wurde geschlossen."}},
    // No German phrase marks synthetic time.
    {"ds.synthetic", 24, 1, 19, 2, "DS", 6,
     {"Für Partition \"{partition}\" wird synthetische Zeit ausgegeben."}},
    {"ds.sync-done", 24, 0, 19, 19, "DS", 30,
     {"Replikatsynchronisierung der Partition \"{partition}\" abgeschlossen."}},
    {"ds.replica-error", 24, 3, 19, 4, "DS", 10,
     {"Verzeichnisdienste: Replikat der Partition \"{partition}\" konnte nicht synchronisiert "
      "werden.",
      "Fehler -625 beim Senden von Aktualisierungen an Server {peer}.",
      "Die Synchronisierung wird später wiederholt."}},
    {"ds.schema", 24, 0, 19, 19, "DS", 8,
     {"Verzeichnisdienste: Schemasynchronisierung mit Server {peer} abgeschlossen."}},
    {"ds.key", 24, 1, 19, 8, "DS", 4,
     {"Öffentlicher Schlüssel von Server {peer} konnte nicht gelesen werden."}},
    {"ds.changes", 24, 0, 19, 19, "DS", 10,
     {"Änderungen an Partition \"{partition}\" wurden an {n} Replikate gesendet."}},
    {"ds.object", 24, 1, 19, 8, "DS", 6,
     {"Objekt {user} wurde in den lokalen Replikaten nicht gefunden."}},
    {"timesync.established", 9, 0, 17, 19, "TIMESYNC", 25, {"Zeitsynchronisierung aufgebaut."}},
    {"timesync.lost", 10, 1, 17, 2, "TIMESYNC", 18,
     {"Zeitsynchronisierung nach {n} erfolgreichen Abfragezyklen abgebrochen."}},
    {"time.changed", 29, 1, 17, 19, "SERVER", 6,
     {"Systemzeit wurde auf Anforderung des Referenz-Zeitservers um {n} Sekunden geändert."}},
    // No German phrases mark the registration of service addresses.
    {"ncp.registered", 24, 0, 5, 19, "SERVER", 10,
     {"Server {server} wurde als NCP-Dienstadresse unter {ip} registriert."}},
    {"ncp.deregistered", 24, 0, 5, 19, "SERVER", 7,
     {"Registrierung von Server {server} als NCP-Dienstadresse unter {ip} aufgehoben."}},
    {"bindery.open", 27, 0, 8, 19, "SERVER", 8, {"Öffnen der Bindery vom SERVER angefordert."}},
    {"bindery.close", 28, 0, 8, 19, "SERVER", 6, {"Schließen der Bindery vom SERVER angefordert."}},
    {"server.down", 24, 0, 17, 19, "SERVER", 5,
     {"Server {server} wurde vom Konsolenbediener heruntergefahren."}},
    {"login.disabled", 18, 1, 17, 19, "SERVER", 6, {"Anmeldung ist nun deaktiviert."}},
    {"login.enabled", 24, 0, 17, 19, "SERVER", 6, {"Anmeldung ist nun aktiviert."}},
    {"rc.granted", 15, 0, 9, 17, "REMOTE", 16, {"Fernkonsolenverbindung für {address} gewährt"}},
    {"rc.cleared", 16, 0, 9, 17, "REMOTE", 14, {"Fernkonsolenverbindung für {address} getrennt"}},
    {"rc.refused", 17, 1, 9, 3, "REMOTE", 8, {"Fernkonsolenverbindung für {address} abgelehnt"}},
    {"intruder.lockout", 19, 1, 9, 17, "SERVER", 8,
     {"Sperre des unbefugten Benutzers für Konto {user} [{address}]."}},
    {"intruder.detected", 19, 1, 9, 3, "DS", 5,
     {"Eindringlingserkennung: {n} ungültige Anmeldeversuche für Konto {user}",
      "von Station {address}. Sperre des unbefugten Benutzers wurde aktiviert."}},
    {"conn.cleared", 24, 0, 9, 19, "SERVER", 12,
     {"Verbindung {n} von Benutzer {user} wurde vom Konsolenbediener getrennt."}},
    {"station.timeout", 24, 1, 9, 13, "SERVER", 10,
     {"Station {address} hat nicht auf die Watchdog-Abfrage geantwortet; Verbindung {n} wurde "
      "getrennt."}},
    {"vol.mounted", 24, 0, 2, 19, "SERVER", 35, {"Volume {volume} wurde aktiviert."}},
    // "deaktiviert" marks a device only when the message begins with the device.
    {"vol.dismounted", 24, 0, 2, 19, "SERVER", 18, {"Volume {volume} wurde deaktiviert."}},
    {"vol.almost-full", 24, 1, 2, 16, "SERVER", 18,
     {"Auf Volume {volume} ist fast kein freier Speicherplatz mehr verfügbar.",
      "{percent} Prozent der Blöcke des Volumes sind belegt."}},
    {"vol.full", 24, 5, 2, 1, "SERVER", 6,
     {"Auf Volume {volume} ist kein freier Speicherplatz mehr verfügbar.",
      "Die Schreibanforderung von Station {n} wurde abgewiesen."}},
    {"device.deactivated", 20, 4, 3, 5, "SERVER", 5,
     {"Gerät \"{device}\" wurde wegen eines Gerätefehlers vom Treiber deaktiviert.",
      "Volume {volume} wird deaktiviert."}},
    {"device.unloaded", 20, 4, 3, 6, "SERVER", 3,
     {"Gerät \"{device}\" wurde deaktiviert, weil sein Treiber entladen wurde."}},
    {"hotfix", 24, 2, 3, 18, "SERVER", 8,
     {"Block {n} auf Gerät \"{device}\" wurde durch Hot Fix umgeleitet.",
      "Die Daten wurden aus der Spiegelkopie wiederhergestellt."}},
    {"mirror.out", 24, 3, 3, 11, "SERVER", 4,
     {"Gespiegelte Partitionen auf Gerät \"{device}\" sind nicht synchron.",
      "Die Neuspiegelung der logischen Partition #{n} wurde gestartet.",
      "Der Server bleibt während der Neuspiegelung verfügbar.",
      "Überprüfen Sie das Gerät auf Hardwarefehler."}},
    {"compress.error", 24, 6, 2, 20, "SERVER", 4,
     {"Die komprimierte Datei {file} auf Volume {volume} ist beschädigt und kann nicht "
      "dekomprimiert werden."}},
    {"bad.format", 24, 6, 2, 9, "SERVER", 3,
     {"Verzeichniseintrag {n} auf Volume {volume} hat ein ungültiges Format und wurde "
      "übersprungen."}},
    {"item.exists", 24, 6, 2, 12, "SERVER", 3,
     {"Datei {file} kann nicht erstellt werden: Eine Datei dieses Namens ist bereits "
      "vorhanden."}},
    {"nss.pool", 24, 1, 2, 16, "NSS", 6,
     {"Pool {volume}_POOL hat seinen Warnschwellenwert von {percent} Prozent erreicht."}},
    {"request.error", 24, 1, 2, 7, "SERVER", 4,
     {"Modul {nlm} hat eine ungültige Anforderung an das Dateisystem gestellt."}},
    {"tts.shutdown", 21, 3, 7, 6, "SERVER", 5,
     {"TTS heruntergefahren, da das Sicherungsvolume {volume} deaktiviert wurde."}},
    {"tts.enabled", 24, 0, 7, 19, "SERVER", 6,
     {"Transaktionsverfolgung (TTS) auf Volume {volume} aktiviert."}},
    {"tts.backout", 24, 2, 7, 19, "SERVER", 4,
     {"TTS hat {n} unvollständige Transaktionen auf Volume {volume} zurückgesetzt."}},
    {"audit.enabled", 23, 0, 2, 17, "SERVER", 6,
     {"Revision wurde auf Volume {volume} von {user} aktiviert."}},
    {"audit.full", 23, 1, 2, 16, "SERVER", 5,
     {"Die Revisionsdatei von Volume {volume} ist zu {percent} Prozent voll.",
      "Setzen Sie die Revisionsdatei mit AUDITCON zurück, bevor sie ihre maximale Größe "
      "erreicht."}},
    {"nls.installed", 22, 0, 16, 19, "NLSLSP", 6,
     {"NLS: Lizenzzertifikat {hex} für {n} Benutzerverbindungen wurde installiert."}},
    {"nls.exceeded", 22, 1, 16, 14, "NLSLSP", 5,
     {"NLS: Die Anzahl der lizenzierten Verbindungen ({n}) wurde überschritten.",
      "Weitere Benutzer können sich nicht anmelden."}},
    {"policy.read", 31, 1, 16, 15, "DS", 4,
     {"POLICY MANAGER: Die Richtlinie von Objekt {user} kann nicht gelesen werden."}},
    {"policy.update", 31, 0, 16, 19, "DS", 4,
     {"POLICY MANAGER: {n} Richtlinien wurden im lokalen Cache aktualisiert."}},
    {"router.config", 32, 1, 10, 15, "IPXRTR", 6,
     {"Router-Konfigurationsfehler erkannt.",
      "Knoten {node} meldet für Netzwerk {net} die Nummer {net2}."}},
    {"lan.bound", 24, 0, 5, 19, "SERVER", 10,
     {"IPX-Protokoll an Netzwerkkarte {lan} mit Netzwerknummer {net} gebunden."}},
    {"lan.timeout", 24, 1, 4, 5, "SERVER", 8,
     {"Zeitüberschreitung beim Senden auf Netzwerkkarte {lan} in Steckplatz {slot}.",
      "Der Adapter wurde zurückgesetzt."}},
    {"slp.agent", 24, 0, 5, 19, "SLP", 5, {"SLP: Verzeichnisagent {ip} wurde gefunden."}},
    {"nlm.loaded", 24, 0, 16, 19, "SERVER", 30, {"Modul {nlm} wurde geladen."}},
    {"nlm.unloaded", 24, 1, 16, 19, "SERVER", 10,
     {"Modul {nlm} wurde vom Konsolenbediener entladen."}},
    {"resource.leak", 24, 1, 15, 4, "SERVER", 4,
     {"Modul {nlm} hat beim Entladen {n} Ressourcen-Tags nicht freigegeben."}},
    {"cache.low", 24, 1, 18, 16, "SERVER", 10,
     {"Der Cache-Speicher wird knapp.",
      "Nur noch {low} Prozent der ursprünglichen Cache-Puffer sind verfügbar.",
      "Erweitern Sie den Arbeitsspeicher oder entladen Sie nicht benötigte Module."}},
    {"memory.refused", 24, 5, 1, 1, "SERVER", 6,
     {"Anforderung von {bytes} Bytes Speicher durch Modul {nlm} wurde abgewiesen.",
      "Der Kurzzeit-Speicherzuordner hat keinen freien Speicher mehr."}},
    {"lock.limit", 24, 5, 11, 14, "SERVER", 3,
     {"Schwellenwert für Datensatzsperren von Station {n} überschritten.",
      "Die Sperrtabelle ist voll."}},
    {"locked.file", 24, 1, 11, 10, "SERVER", 4,
     {"Datei {file} ist von Station {n} gesperrt und kann nicht gesichert werden."}},
    {"kernel.cpu", 24, 1, 12, 16, "SERVER", 5,
     {"Die Prozessorauslastung liegt seit {n} Sekunden über {percent} Prozent."}},
    {"abend.recovered", 24, 3, 12, 6, "SERVER", 3,
     {"Server {server} hat sich von einem Abbruch in Prozess {hex} erholt.",
      "Der Prozess wurde angehalten."}},
    {"protect.fault", 24, 4, 12, 21, "SERVER", 2,
     {"Modul {nlm} hat im geschützten Adressraum {n} einen Seitenfehler verursacht.",
      "Der Adressraum wurde heruntergefahren und seine Module wurden entladen."}},
    {"ups.battery", 24, 3, 13, 5, "UPS", 2,
     {"Stromausfall. Server {server} läuft mit Batteriestrom."}},
    {"ups.restored", 24, 0, 13, 19, "UPS", 2, {"Die Stromversorgung wurde wiederhergestellt."}},
    {"sft.synced", 24, 0, 14, 19, "SERVER", 2,
     {"Die gespiegelten SFT III-Server-Engines sind jetzt synchron."}},
    {"thirdparty", 24, 0, 0, 0, "BKUPEXEC", 4,
     {"Sicherungsauftrag {n} beendet: {bytes} Bytes wurden auf Band gesichert."}},
};

// clang-format on

static_assert(std::size(kEnglish) == std::size(kGerman), "both languages know every message");

constexpr SysLogErrSequence kSequences[] = {
    {3,
     {"bindery.open", "vol.mounted", "ds.db-open", "lan.bound", "ncp.registered",
      "timesync.established", "ds.established"}},
    {2,
     {"login.disabled", "conn.cleared", "server.down", "ncp.deregistered", "ds.db-closed",
      "bindery.close", "vol.dismounted"}},
    {6, {"ds.unable", "ds.unable", "ds.established"}},
    {6, {"rc.granted", "rc.cleared"}},
    {2, {"rc.refused", "rc.refused", "intruder.lockout"}},
    {3, {"timesync.lost", "ds.synthetic", "timesync.established"}},
    {1, {"hotfix", "mirror.out", "device.deactivated", "tts.shutdown"}},
    {1, {"nls.exceeded", "conn.cleared"}},
};

constexpr bool isKnownKey(std::string_view key) {
    for (const SysLogErrMessage& m : kEnglish)
        if (m.key == key)
            return true;
    return false;
}

constexpr bool sequencesNameKnownKeys() {
    for (const SysLogErrSequence& s : kSequences)
        for (std::size_t i = 0; i < s.keys.size(); ++i)
            if (!s.keys[i].empty() && !isKnownKey(s.keys[i]))
                return false;
    return true;
}
static_assert(sequencesNameKnownKeys(), "a run names a message that does not exist");

} // namespace

std::span<const SysLogErrMessage> sysLogErrMessages(LogLanguage language) {
    if (language == LogLanguage::German)
        return kGerman;
    return kEnglish;
}

std::span<const SysLogErrSequence> sysLogErrSequences() {
    return kSequences;
}

int sysLogErrMessageIndex(std::string_view key) {
    for (std::size_t i = 0; i < std::size(kEnglish); ++i)
        if (kEnglish[i].key == key)
            return static_cast<int>(i);
    return -1;
}

} // namespace twk::demo
