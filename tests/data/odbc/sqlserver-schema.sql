ALTER DATABASE CURRENT SET READ_COMMITTED_SNAPSHOT ON WITH NO_WAIT
GO
IF NOT EXISTS (SELECT * FROM sys.change_tracking_databases WHERE database_id = DB_ID()) ALTER DATABASE CURRENT SET CHANGE_TRACKING = ON (CHANGE_RETENTION = 1 DAYS, AUTO_CLEANUP = ON)
GO
CREATE TABLE "Code" (
  "CodeKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "Code1" SMALLINT NULL DEFAULT 0,
  "Code2" INTEGER NULL DEFAULT 0,
  "Description" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Deleted" SMALLINT NULL DEFAULT 0 CHECK ("Deleted" IN (0, -1))
)
GO
CREATE TABLE "MasterTask" (
  "MasterTaskKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "CodeKey" INTEGER NULL DEFAULT 0,
  "Name" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "MasterPrice" FLOAT(53) NULL,
  "CustomTask" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "ExcludeDependency" SMALLINT NULL DEFAULT 0 CHECK ("ExcludeDependency" IN (0, -1)),
  "Deleted" SMALLINT NULL DEFAULT 0 CHECK ("Deleted" IN (0, -1))
)
GO
CREATE TABLE "CategoryDependency" (
  "CategoryDependencyKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "CategoryKey" INTEGER NULL DEFAULT 0,
  "DependentKey" INTEGER NULL DEFAULT 0
)
GO
CREATE TABLE "Contractor" (
  "ContractorKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "Name" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Address 1" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Address 2" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "City" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "State" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Zipcode" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "License" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL
)
GO
CREATE TABLE "ContractorPlan" (
  "ContractorPlanKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "ContractorKey" INTEGER NOT NULL,
  "PlanName" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  FOREIGN KEY ("ContractorKey") REFERENCES "Contractor" ("ContractorKey") ON DELETE CASCADE
)
GO
CREATE TABLE "ContractorPlanTask" (
  "ContractorPlanTaskKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "ContractorPlanKey" INTEGER NOT NULL,
  "MasterTaskKey" INTEGER NULL DEFAULT 0,
  "CodeKey" INTEGER NULL DEFAULT 0,
  "Name" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "MasterPrice" FLOAT(53) NULL,
  "CustomTask" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "ExcludeDependency" SMALLINT NULL DEFAULT 0 CHECK ("ExcludeDependency" IN (0, -1)),
  FOREIGN KEY ("ContractorPlanKey") REFERENCES "ContractorPlan" ("ContractorPlanKey") ON DELETE CASCADE
)
GO
CREATE TABLE "ContractorTaskOption" (
  "ContractorTaskOptionKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "ContractorPlanTaskKey" INTEGER NOT NULL,
  "Name" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "MasterPrice" FLOAT(53) NULL,
  FOREIGN KEY ("ContractorPlanTaskKey") REFERENCES "ContractorPlanTask" ("ContractorPlanTaskKey") ON DELETE CASCADE
)
GO
CREATE TABLE "ContractorOptionGroup" (
  "OptionGroupKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "ContractorKey" INTEGER NOT NULL,
  "CodeKey" INTEGER NULL DEFAULT 0,
  "MasterTaskKey" INTEGER NULL DEFAULT 0,
  "MasterPrice" FLOAT(53) NULL,
  "ExcludeDependency" SMALLINT NULL DEFAULT 0 CHECK ("ExcludeDependency" IN (0, -1)),
  FOREIGN KEY ("ContractorKey") REFERENCES "Contractor" ("ContractorKey") ON DELETE CASCADE
)
GO
CREATE TABLE "Job" (
  "JobKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "JobNumber" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Name" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Foreman" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "ContractorKey" INTEGER NOT NULL,
  "CompletedDate" DATETIME2(0) NULL,
  FOREIGN KEY ("ContractorKey") REFERENCES "Contractor" ("ContractorKey") ON DELETE NO ACTION
)
GO
CREATE TABLE "JobLot" (
  "JobLotKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "JobKey" INTEGER NOT NULL,
  "LotBlock" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "PlanName" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Address" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "ContractorPlanKey" INTEGER NULL DEFAULT 0,
  "ExcludeDependencyCheck" SMALLINT NULL DEFAULT 0 CHECK ("ExcludeDependencyCheck" IN (0, -1)),
  FOREIGN KEY ("JobKey") REFERENCES "Job" ("JobKey") ON DELETE CASCADE
)
GO
CREATE TABLE "JobLotTask" (
  "JobLotTaskKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "JobLotKey" INTEGER NOT NULL,
  "MasterTaskKey" INTEGER NULL DEFAULT 0,
  "CodeKey" INTEGER NULL DEFAULT 0,
  "ContractorPlanTaskKey" INTEGER NULL DEFAULT 0,
  "ContractorTaskOptionKey" INTEGER NULL DEFAULT 0,
  "Name" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "MasterPrice" FLOAT(53) NULL,
  "CustomTask" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "ExcludeDependency" SMALLINT NULL DEFAULT 0 CHECK ("ExcludeDependency" IN (0, -1)),
  "ParentKey" INTEGER NULL DEFAULT 0,
  "Child" SMALLINT NULL DEFAULT 0,
  "StartDate" DATETIME2(0) NULL,
  "StopDate" DATETIME2(0) NULL,
  "EmployeeKey" INTEGER NULL DEFAULT 0,
  FOREIGN KEY ("JobLotKey") REFERENCES "JobLot" ("JobLotKey") ON DELETE CASCADE
)
GO
CREATE TABLE "Employee" (
  "EmployeeKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "SSN" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "LastName" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "FirstName" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Type" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Foreman" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "MaritalStatus" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Address1" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Address2" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "City" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "State" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Zipcode" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Telephone" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "Dependants" INTEGER NULL,
  "Information" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "DateofHire" DATETIME2(0) NULL,
  "DateofTermination" DATETIME2(0) NULL,
  "Inactive" SMALLINT NULL DEFAULT 0 CHECK ("Inactive" IN (0, -1))
)
GO
CREATE TABLE "JobTaskEmployee" (
  "JobTaskEmployee" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "JobLotTaskKey" INTEGER NOT NULL,
  "EmployeeKey" INTEGER NOT NULL,
  "Price" FLOAT(53) NULL,
  "Completed" DATETIME2(0) NULL,
  "Note" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  FOREIGN KEY ("JobLotTaskKey") REFERENCES "JobLotTask" ("JobLotTaskKey") ON DELETE NO ACTION,
  FOREIGN KEY ("EmployeeKey") REFERENCES "Employee" ("EmployeeKey") ON DELETE NO ACTION
)
GO
CREATE TABLE "EmployeeLog" (
  "LogKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "EmployeeKey" INTEGER NOT NULL,
  "JobLotTaskKey" INTEGER NULL DEFAULT 0,
  "Occured" DATETIME2(0) NULL,
  "Problem" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  FOREIGN KEY ("EmployeeKey") REFERENCES "Employee" ("EmployeeKey") ON DELETE NO ACTION
)
GO
CREATE TABLE "ReportDefinition" (
  "reportDefinitionKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "Name" NVARCHAR(400) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "objectName" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL,
  "multiSelect" SMALLINT NULL DEFAULT 0 CHECK ("multiSelect" IN (0, -1)),
  "reportType" SMALLINT NULL DEFAULT 0,
  "pEntryDate" SMALLINT NULL DEFAULT 0 CHECK ("pEntryDate" IN (0, -1)),
  "pForeman" SMALLINT NULL DEFAULT 0 CHECK ("pForeman" IN (0, -1)),
  "pSSN" SMALLINT NULL DEFAULT 0 CHECK ("pSSN" IN (0, -1)),
  "pDetailLevel" SMALLINT NULL DEFAULT 0 CHECK ("pDetailLevel" IN (0, -1)),
  "summaryOnly" SMALLINT NULL DEFAULT 0 CHECK ("summaryOnly" IN (0, -1)),
  "groupBy" SMALLINT NULL DEFAULT 0 CHECK ("groupBy" IN (0, -1)),
  "category" SMALLINT NULL DEFAULT 0 CHECK ("category" IN (0, -1))
)
GO
CREATE TABLE "SchemaVersion" (
  "SchemaVersionKey" INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
  "Version" INTEGER NOT NULL,
  "Program" NVARCHAR(MAX) COLLATE Latin1_General_100_CI_AS_KS_WS_SC NULL
)
GO
CREATE INDEX "Code_Code1_Deleted_Description" ON "Code" ("Code1", "Deleted", "Description")
GO
CREATE INDEX "Code_Code1_Code2_Description" ON "Code" ("Code1", "Code2", "Description")
GO
CREATE INDEX "Code_Deleted_Description" ON "Code" ("Deleted", "Description")
GO
CREATE TRIGGER "Code_YesNo" ON "Code" AFTER INSERT, UPDATE AS
BEGIN
  SET NOCOUNT ON;
  IF EXISTS (SELECT * FROM inserted WHERE "Deleted" IS NULL)
    UPDATE "Code" SET "Deleted" = COALESCE("Deleted", 0)
    WHERE "CodeKey" IN (SELECT "CodeKey" FROM inserted) AND ("Deleted" IS NULL);
END
GO
ALTER TABLE "Code" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "MasterTask_Deleted_Name" ON "MasterTask" ("Deleted", "Name")
GO
CREATE INDEX "MasterTask_CodeKey_Deleted_Name" ON "MasterTask" ("CodeKey", "Deleted", "Name")
GO
CREATE TRIGGER "MasterTask_YesNo" ON "MasterTask" AFTER INSERT, UPDATE AS
BEGIN
  SET NOCOUNT ON;
  IF EXISTS (SELECT * FROM inserted WHERE "ExcludeDependency" IS NULL OR "Deleted" IS NULL)
    UPDATE "MasterTask" SET "ExcludeDependency" = COALESCE("ExcludeDependency", 0), "Deleted" = COALESCE("Deleted", 0)
    WHERE "MasterTaskKey" IN (SELECT "MasterTaskKey" FROM inserted) AND ("ExcludeDependency" IS NULL OR "Deleted" IS NULL);
END
GO
ALTER TABLE "MasterTask" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "CategoryDependency_CategoryKey_DependentKey" ON "CategoryDependency" ("CategoryKey", "DependentKey")
GO
ALTER TABLE "CategoryDependency" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "Contractor_Name" ON "Contractor" ("Name")
GO
CREATE INDEX "Contractor_Address1" ON "Contractor" ("Address 1")
GO
ALTER TABLE "Contractor" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "ContractorPlan_ContractorKey_PlanName" ON "ContractorPlan" ("ContractorKey", "PlanName")
GO
ALTER TABLE "ContractorPlan" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "ContractorPlanTask_ContractorPlanKey_CodeKey_Name" ON "ContractorPlanTask" ("ContractorPlanKey", "CodeKey", "Name")
GO
CREATE INDEX "ContractorPlanTask_ContractorPlanKey_MasterTaskKey" ON "ContractorPlanTask" ("ContractorPlanKey", "MasterTaskKey")
GO
CREATE INDEX "ContractorPlanTask_MasterTaskKey" ON "ContractorPlanTask" ("MasterTaskKey")
GO
CREATE TRIGGER "ContractorPlanTask_YesNo" ON "ContractorPlanTask" AFTER INSERT, UPDATE AS
BEGIN
  SET NOCOUNT ON;
  IF EXISTS (SELECT * FROM inserted WHERE "ExcludeDependency" IS NULL)
    UPDATE "ContractorPlanTask" SET "ExcludeDependency" = COALESCE("ExcludeDependency", 0)
    WHERE "ContractorPlanTaskKey" IN (SELECT "ContractorPlanTaskKey" FROM inserted) AND ("ExcludeDependency" IS NULL);
END
GO
ALTER TABLE "ContractorPlanTask" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "ContractorTaskOption_ContractorPlanTaskKey_Name" ON "ContractorTaskOption" ("ContractorPlanTaskKey", "Name")
GO
ALTER TABLE "ContractorTaskOption" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "ContractorOptionGroup_ContractorKey_CodeKey_MasterTaskKey" ON "ContractorOptionGroup" ("ContractorKey", "CodeKey", "MasterTaskKey")
GO
CREATE INDEX "ContractorOptionGroup_CodeKey" ON "ContractorOptionGroup" ("CodeKey")
GO
CREATE INDEX "ContractorOptionGroup_MasterTaskKey" ON "ContractorOptionGroup" ("MasterTaskKey")
GO
CREATE TRIGGER "ContractorOptionGroup_YesNo" ON "ContractorOptionGroup" AFTER INSERT, UPDATE AS
BEGIN
  SET NOCOUNT ON;
  IF EXISTS (SELECT * FROM inserted WHERE "ExcludeDependency" IS NULL)
    UPDATE "ContractorOptionGroup" SET "ExcludeDependency" = COALESCE("ExcludeDependency", 0)
    WHERE "OptionGroupKey" IN (SELECT "OptionGroupKey" FROM inserted) AND ("ExcludeDependency" IS NULL);
END
GO
ALTER TABLE "ContractorOptionGroup" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "Job_CompletedDate_JobNumber" ON "Job" ("CompletedDate", "JobNumber")
GO
CREATE INDEX "Job_JobNumber" ON "Job" ("JobNumber")
GO
CREATE INDEX "Job_ContractorKey_CompletedDate_JobNumber" ON "Job" ("ContractorKey", "CompletedDate", "JobNumber")
GO
CREATE INDEX "Job_Foreman_JobNumber" ON "Job" ("Foreman", "JobNumber")
GO
ALTER TABLE "Job" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "JobLot_JobKey_LotBlock" ON "JobLot" ("JobKey", "LotBlock")
GO
CREATE TRIGGER "JobLot_YesNo" ON "JobLot" AFTER INSERT, UPDATE AS
BEGIN
  SET NOCOUNT ON;
  IF EXISTS (SELECT * FROM inserted WHERE "ExcludeDependencyCheck" IS NULL)
    UPDATE "JobLot" SET "ExcludeDependencyCheck" = COALESCE("ExcludeDependencyCheck", 0)
    WHERE "JobLotKey" IN (SELECT "JobLotKey" FROM inserted) AND ("ExcludeDependencyCheck" IS NULL);
END
GO
ALTER TABLE "JobLot" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "JobLotTask_JobLotKey_CodeKey_Name_ParentKey_Child" ON "JobLotTask" ("JobLotKey", "CodeKey", "Name", "ParentKey", "Child")
GO
CREATE INDEX "JobLotTask_MasterTaskKey_JobLotKey" ON "JobLotTask" ("MasterTaskKey", "JobLotKey")
GO
CREATE INDEX "JobLotTask_ContractorPlanTaskKey_JobLotKey" ON "JobLotTask" ("ContractorPlanTaskKey", "JobLotKey")
GO
CREATE INDEX "JobLotTask_ParentKey_Child_Name" ON "JobLotTask" ("ParentKey", "Child", "Name")
GO
CREATE INDEX "JobLotTask_StartDate" ON "JobLotTask" ("StartDate")
GO
CREATE TRIGGER "JobLotTask_YesNo" ON "JobLotTask" AFTER INSERT, UPDATE AS
BEGIN
  SET NOCOUNT ON;
  IF EXISTS (SELECT * FROM inserted WHERE "ExcludeDependency" IS NULL)
    UPDATE "JobLotTask" SET "ExcludeDependency" = COALESCE("ExcludeDependency", 0)
    WHERE "JobLotTaskKey" IN (SELECT "JobLotTaskKey" FROM inserted) AND ("ExcludeDependency" IS NULL);
END
GO
ALTER TABLE "JobLotTask" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "Employee_SSN" ON "Employee" ("SSN")
GO
CREATE INDEX "Employee_LastName" ON "Employee" ("LastName")
GO
CREATE INDEX "Employee_FirstName" ON "Employee" ("FirstName")
GO
CREATE INDEX "Employee_Type_LastName" ON "Employee" ("Type", "LastName")
GO
CREATE INDEX "Employee_Inactive_SSN" ON "Employee" ("Inactive", "SSN")
GO
CREATE INDEX "Employee_Inactive_LastName" ON "Employee" ("Inactive", "LastName")
GO
CREATE TRIGGER "Employee_YesNo" ON "Employee" AFTER INSERT, UPDATE AS
BEGIN
  SET NOCOUNT ON;
  IF EXISTS (SELECT * FROM inserted WHERE "Inactive" IS NULL)
    UPDATE "Employee" SET "Inactive" = COALESCE("Inactive", 0)
    WHERE "EmployeeKey" IN (SELECT "EmployeeKey" FROM inserted) AND ("Inactive" IS NULL);
END
GO
ALTER TABLE "Employee" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "JobTaskEmployee_JobLotTaskKey_EmployeeKey" ON "JobTaskEmployee" ("JobLotTaskKey", "EmployeeKey")
GO
CREATE INDEX "JobTaskEmployee_EmployeeKey" ON "JobTaskEmployee" ("EmployeeKey")
GO
CREATE INDEX "JobTaskEmployee_Completed" ON "JobTaskEmployee" ("Completed")
GO
ALTER TABLE "JobTaskEmployee" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "EmployeeLog_EmployeeKey_Occured" ON "EmployeeLog" ("EmployeeKey", "Occured")
GO
CREATE INDEX "EmployeeLog_JobLotTaskKey" ON "EmployeeLog" ("JobLotTaskKey")
GO
CREATE INDEX "EmployeeLog_Occured" ON "EmployeeLog" ("Occured")
GO
ALTER TABLE "EmployeeLog" ENABLE CHANGE_TRACKING
GO
CREATE INDEX "ReportDefinition_Name" ON "ReportDefinition" ("Name")
GO
CREATE TRIGGER "ReportDefinition_YesNo" ON "ReportDefinition" AFTER INSERT, UPDATE AS
BEGIN
  SET NOCOUNT ON;
  IF EXISTS (SELECT * FROM inserted WHERE "multiSelect" IS NULL OR "pEntryDate" IS NULL OR "pForeman" IS NULL OR "pSSN" IS NULL OR "pDetailLevel" IS NULL OR "summaryOnly" IS NULL OR "groupBy" IS NULL OR "category" IS NULL)
    UPDATE "ReportDefinition" SET "multiSelect" = COALESCE("multiSelect", 0), "pEntryDate" = COALESCE("pEntryDate", 0), "pForeman" = COALESCE("pForeman", 0), "pSSN" = COALESCE("pSSN", 0), "pDetailLevel" = COALESCE("pDetailLevel", 0), "summaryOnly" = COALESCE("summaryOnly", 0), "groupBy" = COALESCE("groupBy", 0), "category" = COALESCE("category", 0)
    WHERE "reportDefinitionKey" IN (SELECT "reportDefinitionKey" FROM inserted) AND ("multiSelect" IS NULL OR "pEntryDate" IS NULL OR "pForeman" IS NULL OR "pSSN" IS NULL OR "pDetailLevel" IS NULL OR "summaryOnly" IS NULL OR "groupBy" IS NULL OR "category" IS NULL);
END
GO
ALTER TABLE "ReportDefinition" ENABLE CHANGE_TRACKING
GO
ALTER TABLE "SchemaVersion" ENABLE CHANGE_TRACKING
GO
CREATE TRIGGER "Contractor_OptionGroups" ON "Contractor" AFTER DELETE AS
BEGIN
  SET NOCOUNT ON;
  DELETE FROM "Code" WHERE "Code1" = 5 AND "Code2" IN (SELECT "ContractorKey" FROM deleted);
END
GO
