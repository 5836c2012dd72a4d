;;; emacs.el --- Emacs' xml-rpc  -*- lexical-binding: t -*-
;; An empty struct is no value of Lisp that it tells from an empty array.
(require 'xml-rpc)
(require 'url-auth)
(require 'url-http)
(require 'url-parse)

(let* ((given (pop command-line-args-left))
       (url (url-generic-parse-url given))
       (user (url-user url)))
  (when user
    ;; What it would have asked for, as it keeps it: by server and realm.
    (setq url-http-real-basic-auth-storage
          (list (list (format "%s:%s" (url-host url) (url-port url))
                      (cons "lmq-host" (base64-encode-string (concat user ":" (url-password url)) t)))))
    (setf (url-user url) nil (url-password url) nil))
  (let ((call (lambda (method &rest values)
                (apply #'xml-rpc-method-call (url-recreate-url url) method values)))
        (lines nil))
    (funcall call 'lmq.lmq_write_register 0 4096 305419896)
    (let ((read (funcall call 'lmq.lmq_read_register 0 4096 (vector 0))))
      (push (format "number %d" (car (nth 3 read))) lines)
      (push (format "array %d" (length read)) lines))
    (funcall call 'lmq.vx_watchdog_set 0
             '(("wd_enable" . 1) ("wd_timer" . 77) ("mask_s" . (("wd_enable" . 1) ("wd_timer" . 1)))))
    (push (format "struct %d" (cdr (assoc "wd_timer" (nth 2 (funcall call 'lmq.vx_watchdog_get 0 '(("wd_timer" . 0)))))))
          lines)
    (condition-case failure
        (funcall call 'lmq.nobody)
      (error (push (format "fault %d" xml-rpc-fault-code) lines)))
    (let* ((one '(("methodName" . "lmq.lmq_read_register") ("params" . [0 4096 [0]])))
           (many (funcall call 'system.multicall (vector one one one))))
      (push (concat "multicall " (mapconcat (lambda (each) (format "%d" (car (nth 3 (car each))))) many " ")) lines))
    (princ (concat (mapconcat #'identity (nreverse lines) "\n") "\n"))))
