CREATE TABLE "Code" (
  "CodeKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "Code1" INTEGER DEFAULT 0,
  "Code2" INTEGER DEFAULT 0,
  "Description" TEXT COLLATE NOCASE,
  "Deleted" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("Deleted" IN (0, -1))
)
GO
CREATE TABLE "MasterTask" (
  "MasterTaskKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "CodeKey" INTEGER DEFAULT 0,
  "Name" TEXT COLLATE NOCASE,
  "MasterPrice" REAL,
  "CustomTask" TEXT COLLATE NOCASE,
  "ExcludeDependency" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("ExcludeDependency" IN (0, -1)),
  "Deleted" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("Deleted" IN (0, -1))
)
GO
CREATE TABLE "CategoryDependency" (
  "CategoryDependencyKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "CategoryKey" INTEGER DEFAULT 0,
  "DependentKey" INTEGER DEFAULT 0
)
GO
CREATE TABLE "Contractor" (
  "ContractorKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "Name" TEXT COLLATE NOCASE,
  "Address 1" TEXT COLLATE NOCASE,
  "Address 2" TEXT COLLATE NOCASE,
  "City" TEXT COLLATE NOCASE,
  "State" TEXT COLLATE NOCASE,
  "Zipcode" TEXT COLLATE NOCASE,
  "License" TEXT COLLATE NOCASE
)
GO
CREATE TABLE "ContractorPlan" (
  "ContractorPlanKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "ContractorKey" INTEGER NOT NULL,
  "PlanName" TEXT COLLATE NOCASE,
  FOREIGN KEY ("ContractorKey") REFERENCES "Contractor" ("ContractorKey") ON DELETE CASCADE
)
GO
CREATE TABLE "ContractorPlanTask" (
  "ContractorPlanTaskKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "ContractorPlanKey" INTEGER NOT NULL,
  "MasterTaskKey" INTEGER DEFAULT 0,
  "CodeKey" INTEGER DEFAULT 0,
  "Name" TEXT COLLATE NOCASE,
  "MasterPrice" REAL,
  "CustomTask" TEXT COLLATE NOCASE,
  "ExcludeDependency" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("ExcludeDependency" IN (0, -1)),
  FOREIGN KEY ("ContractorPlanKey") REFERENCES "ContractorPlan" ("ContractorPlanKey") ON DELETE CASCADE
)
GO
CREATE TABLE "ContractorTaskOption" (
  "ContractorTaskOptionKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "ContractorPlanTaskKey" INTEGER NOT NULL,
  "Name" TEXT COLLATE NOCASE,
  "MasterPrice" REAL,
  FOREIGN KEY ("ContractorPlanTaskKey") REFERENCES "ContractorPlanTask" ("ContractorPlanTaskKey") ON DELETE CASCADE
)
GO
CREATE TABLE "ContractorOptionGroup" (
  "OptionGroupKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "ContractorKey" INTEGER NOT NULL,
  "CodeKey" INTEGER DEFAULT 0,
  "MasterTaskKey" INTEGER DEFAULT 0,
  "MasterPrice" REAL,
  "ExcludeDependency" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("ExcludeDependency" IN (0, -1)),
  FOREIGN KEY ("ContractorKey") REFERENCES "Contractor" ("ContractorKey") ON DELETE CASCADE
)
GO
CREATE TABLE "Job" (
  "JobKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "JobNumber" TEXT COLLATE NOCASE,
  "Name" TEXT COLLATE NOCASE,
  "Foreman" TEXT COLLATE NOCASE,
  "ContractorKey" INTEGER NOT NULL,
  "CompletedDate" TEXT,
  FOREIGN KEY ("ContractorKey") REFERENCES "Contractor" ("ContractorKey") ON DELETE RESTRICT
)
GO
CREATE TABLE "JobLot" (
  "JobLotKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "JobKey" INTEGER NOT NULL,
  "LotBlock" TEXT COLLATE NOCASE,
  "PlanName" TEXT COLLATE NOCASE,
  "Address" TEXT COLLATE NOCASE,
  "ContractorPlanKey" INTEGER DEFAULT 0,
  "ExcludeDependencyCheck" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("ExcludeDependencyCheck" IN (0, -1)),
  FOREIGN KEY ("JobKey") REFERENCES "Job" ("JobKey") ON DELETE CASCADE
)
GO
CREATE TABLE "JobLotTask" (
  "JobLotTaskKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "JobLotKey" INTEGER NOT NULL,
  "MasterTaskKey" INTEGER DEFAULT 0,
  "CodeKey" INTEGER DEFAULT 0,
  "ContractorPlanTaskKey" INTEGER DEFAULT 0,
  "ContractorTaskOptionKey" INTEGER DEFAULT 0,
  "Name" TEXT COLLATE NOCASE,
  "MasterPrice" REAL,
  "CustomTask" TEXT COLLATE NOCASE,
  "ExcludeDependency" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("ExcludeDependency" IN (0, -1)),
  "ParentKey" INTEGER DEFAULT 0,
  "Child" INTEGER DEFAULT 0,
  "StartDate" TEXT,
  "StopDate" TEXT,
  "EmployeeKey" INTEGER DEFAULT 0,
  FOREIGN KEY ("JobLotKey") REFERENCES "JobLot" ("JobLotKey") ON DELETE CASCADE
)
GO
CREATE TABLE "Employee" (
  "EmployeeKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "SSN" TEXT COLLATE NOCASE,
  "LastName" TEXT COLLATE NOCASE,
  "FirstName" TEXT COLLATE NOCASE,
  "Type" TEXT COLLATE NOCASE,
  "Foreman" TEXT COLLATE NOCASE,
  "MaritalStatus" TEXT COLLATE NOCASE,
  "Address1" TEXT COLLATE NOCASE,
  "Address2" TEXT COLLATE NOCASE,
  "City" TEXT COLLATE NOCASE,
  "State" TEXT COLLATE NOCASE,
  "Zipcode" TEXT COLLATE NOCASE,
  "Telephone" TEXT COLLATE NOCASE,
  "Dependants" INTEGER,
  "Information" TEXT COLLATE NOCASE,
  "DateofHire" TEXT,
  "DateofTermination" TEXT,
  "Inactive" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("Inactive" IN (0, -1))
)
GO
CREATE TABLE "JobTaskEmployee" (
  "JobTaskEmployee" INTEGER PRIMARY KEY AUTOINCREMENT,
  "JobLotTaskKey" INTEGER NOT NULL,
  "EmployeeKey" INTEGER NOT NULL,
  "Price" REAL,
  "Completed" TEXT,
  "Note" TEXT COLLATE NOCASE,
  FOREIGN KEY ("JobLotTaskKey") REFERENCES "JobLotTask" ("JobLotTaskKey") ON DELETE RESTRICT,
  FOREIGN KEY ("EmployeeKey") REFERENCES "Employee" ("EmployeeKey") ON DELETE RESTRICT
)
GO
CREATE TABLE "EmployeeLog" (
  "LogKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "EmployeeKey" INTEGER NOT NULL,
  "JobLotTaskKey" INTEGER DEFAULT 0,
  "Occured" TEXT,
  "Problem" TEXT COLLATE NOCASE,
  FOREIGN KEY ("EmployeeKey") REFERENCES "Employee" ("EmployeeKey") ON DELETE RESTRICT
)
GO
CREATE TABLE "ReportDefinition" (
  "reportDefinitionKey" INTEGER PRIMARY KEY AUTOINCREMENT,
  "Name" TEXT COLLATE NOCASE,
  "objectName" TEXT COLLATE NOCASE,
  "multiSelect" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("multiSelect" IN (0, -1)),
  "reportType" INTEGER DEFAULT 0,
  "pEntryDate" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("pEntryDate" IN (0, -1)),
  "pForeman" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("pForeman" IN (0, -1)),
  "pSSN" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("pSSN" IN (0, -1)),
  "pDetailLevel" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("pDetailLevel" IN (0, -1)),
  "summaryOnly" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("summaryOnly" IN (0, -1)),
  "groupBy" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("groupBy" IN (0, -1)),
  "category" INTEGER NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK ("category" IN (0, -1))
)
GO
CREATE INDEX "Code_Code1_Deleted_Description" ON "Code" ("Code1", "Deleted", "Description")
GO
CREATE INDEX "Code_Code1_Code2_Description" ON "Code" ("Code1", "Code2", "Description")
GO
CREATE INDEX "Code_Deleted_Description" ON "Code" ("Deleted", "Description")
GO
CREATE INDEX "MasterTask_Deleted_Name" ON "MasterTask" ("Deleted", "Name")
GO
CREATE INDEX "MasterTask_CodeKey_Deleted_Name" ON "MasterTask" ("CodeKey", "Deleted", "Name")
GO
CREATE INDEX "CategoryDependency_CategoryKey_DependentKey" ON "CategoryDependency" ("CategoryKey", "DependentKey")
GO
CREATE INDEX "Contractor_Name" ON "Contractor" ("Name")
GO
CREATE INDEX "Contractor_Address1" ON "Contractor" ("Address 1")
GO
CREATE INDEX "ContractorPlan_ContractorKey_PlanName" ON "ContractorPlan" ("ContractorKey", "PlanName")
GO
CREATE INDEX "ContractorPlanTask_ContractorPlanKey_CodeKey_Name" ON "ContractorPlanTask" ("ContractorPlanKey", "CodeKey", "Name")
GO
CREATE INDEX "ContractorPlanTask_ContractorPlanKey_MasterTaskKey" ON "ContractorPlanTask" ("ContractorPlanKey", "MasterTaskKey")
GO
CREATE INDEX "ContractorPlanTask_MasterTaskKey" ON "ContractorPlanTask" ("MasterTaskKey")
GO
CREATE INDEX "ContractorTaskOption_ContractorPlanTaskKey_Name" ON "ContractorTaskOption" ("ContractorPlanTaskKey", "Name")
GO
CREATE INDEX "ContractorOptionGroup_ContractorKey_CodeKey_MasterTaskKey" ON "ContractorOptionGroup" ("ContractorKey", "CodeKey", "MasterTaskKey")
GO
CREATE INDEX "ContractorOptionGroup_CodeKey" ON "ContractorOptionGroup" ("CodeKey")
GO
CREATE INDEX "ContractorOptionGroup_MasterTaskKey" ON "ContractorOptionGroup" ("MasterTaskKey")
GO
CREATE INDEX "Job_CompletedDate_JobNumber" ON "Job" ("CompletedDate", "JobNumber")
GO
CREATE INDEX "Job_JobNumber" ON "Job" ("JobNumber")
GO
CREATE INDEX "Job_ContractorKey_CompletedDate_JobNumber" ON "Job" ("ContractorKey", "CompletedDate", "JobNumber")
GO
CREATE INDEX "Job_Foreman_JobNumber" ON "Job" ("Foreman", "JobNumber")
GO
CREATE INDEX "JobLot_JobKey_LotBlock" ON "JobLot" ("JobKey", "LotBlock")
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
CREATE INDEX "JobTaskEmployee_JobLotTaskKey_EmployeeKey" ON "JobTaskEmployee" ("JobLotTaskKey", "EmployeeKey")
GO
CREATE INDEX "JobTaskEmployee_EmployeeKey" ON "JobTaskEmployee" ("EmployeeKey")
GO
CREATE INDEX "JobTaskEmployee_Completed" ON "JobTaskEmployee" ("Completed")
GO
CREATE INDEX "EmployeeLog_EmployeeKey_Occured" ON "EmployeeLog" ("EmployeeKey", "Occured")
GO
CREATE INDEX "EmployeeLog_JobLotTaskKey" ON "EmployeeLog" ("JobLotTaskKey")
GO
CREATE INDEX "EmployeeLog_Occured" ON "EmployeeLog" ("Occured")
GO
CREATE INDEX "ReportDefinition_Name" ON "ReportDefinition" ("Name")
GO
CREATE TRIGGER "Contractor_OptionGroups" AFTER DELETE ON "Contractor"
BEGIN
  DELETE FROM "Code" WHERE "Code1" = 5 AND "Code2" = OLD."ContractorKey";
END
GO
