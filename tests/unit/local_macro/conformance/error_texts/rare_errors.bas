' The descriptions of errors that a macro hardly meets.
'> 16 Expression too complex
'> 47 Too many DLL application clients
'> 51 Internal error
'> 97 Can not call friend function on object which is not an instance of defining class
'> 443 Automation object does not have a default value
'> 447 Object doesn't support current locale setting
'> 452 Invalid ordinal
'> 454 Code resource not found
'> 455 Code resource lock error
'> 459 Object or class does not support the set of events
Sub main()
    For Each number In Array(16, 47, 51, 97, 443, 447, 452, 454, 455, 459)
        Debug.Print number & " " & Error(number)
    Next
End Sub
