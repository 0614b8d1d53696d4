' The descriptions of the errors around files.
'> 52 Bad file name or number
'> 53 File not found
'> 54 Bad file mode
'> 55 File already open
'> 57 Device I/O error
'> 58 File already exists
'> 59 Bad record length
'> 61 Disk full
'> 62 Input past end of file
'> 63 Bad record number
'> 67 Too many files
'> 68 Device unavailable
'> 70 Permission denied
'> 71 Disk not ready
'> 74 Can't rename with different drive
'> 75 Path/File access error
'> 76 Path not found
Sub main()
    For Each number In Array(52, 53, 54, 55, 57, 58, 59, 61, 62, 63, 67, 68, 70, 71, 74, 75, 76)
        Debug.Print number & " " & Error(number)
    Next
End Sub
