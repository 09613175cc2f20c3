DECLARE @locked int; EXEC @locked = sp_getapplock @Resource = N'Tarnwell schema', @LockMode = N'Exclusive', @LockOwner = N'Session', @LockTimeout = 120000; IF @locked < 0 THROW 51222, N'Another program is changing the tables.', 1
GO
SELECT "Version", "Program" FROM "SchemaVersion" ORDER BY "Version" DESC
GO
SELECT 1 WHERE HAS_PERMS_BY_NAME(DB_NAME(), N'DATABASE', N'CREATE TABLE') = 1 AND HAS_PERMS_BY_NAME(SCHEMA_NAME(), N'SCHEMA', N'ALTER') = 1
GO
CREATE TABLE "SchemaVersion" (
  "SchemaVersionKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "Version" INTEGER NOT NULL,
  "Program" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL
)
GO
ALTER TABLE "SchemaVersion" ENABLE CHANGE_TRACKING
GO
INSERT INTO "SchemaVersion" ("Version", "Program") VALUES (?, ?)
GO
